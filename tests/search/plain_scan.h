// The judge of the fast scan: the same search one word at a time, in terms of the matcher's operations alone.
#pragma once

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

PlainResult PlainScan(const Lexicon& lexicon, const ScanRequest& request,
                      size_t screenCapacity = static_cast<size_t>(-1));

}  // namespace quorvane::test
