// The judge of the fast scan: the same search one word at a time, in terms of the matcher's operations alone.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/scan.h"

namespace quorvane::test {

struct PlainResult {
  std::vector<WordNumber> found;
  size_t listed = 0;
  bool truncated = false;
  std::vector<int> progress;  // The percentages reported.
};

// What else a word, in lower case, must meet.
using PlainCondition = std::function<bool(const std::string& word)>;

PlainResult PlainScan(const Lexicon& lexicon, const ScanRequest& request,
                      size_t screenCapacity = static_cast<size_t>(-1), const PlainCondition& condition = {});

// Whether a word, in lower case, fits the request's pattern, whatever its length and initial.
bool PlainFits(const ScanRequest& request, const std::string& word);

}  // namespace quorvane::test
