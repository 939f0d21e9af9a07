// A set of the words of a lexicon.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/conditions.h"
#include "search/emit.h"

namespace quorvane {

class WordSet {
 public:
  // Of numbers from 0, which is no word, to the lexicon's count.
  WordSet(const Lexicon& lexicon, std::span<const WordNumber> numbers);

  bool Has(WordNumber number) const { return (bits_[number / 64] >> (number % 64) & 1) != 0; }
  // Those of the set that meet a condition which must fit; `fitting` becomes their numbers, ascending. The lexicon is
  // that of the set.
  WordSet Meeting(const Lexicon& lexicon, const PreparedCondition& condition, FoundNumbers& fitting) const;

 private:
  explicit WordSet(size_t blocks) : bits_(blocks) {}

  std::vector<uint64_t> bits_;  // By number.
};

}  // namespace quorvane
