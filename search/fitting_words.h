// Which words of a lexicon meet a condition.
#pragma once

#include <cstdint>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/conditions.h"

namespace quorvane {

class FittingWords {
 public:
  // Looks at every word. The condition is one that must fit.
  FittingWords(const Lexicon& lexicon, const PreparedCondition& condition);

  // Of a number up to the lexicon's count; 0 is no word.
  bool Has(WordNumber number) const { return (bits_[number / 64] >> (number % 64) & 1) != 0; }

 private:
  std::vector<uint64_t> bits_;  // By number.
};

}  // namespace quorvane
