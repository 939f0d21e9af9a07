// Counts of a lexicon's words by initial and by length.
#pragma once

#include <array>
#include <string>

#include "lexicon/lexicon.h"

namespace quorvane {

inline constexpr int kLengthRows = 26;  // Lengths 1 to 25 and "26+".

struct StatisticsRow {
  std::string label;
  int32_t count = 0;
};

// "A" to "Z" in order; words after Z belong to Z.
std::array<StatisticsRow, 26> CountByLetter(const Lexicon& lexicon);
// "1" to "25", and "26+" for 26 up to the longest length offered.
std::array<StatisticsRow, kLengthRows> CountByLength(const Lexicon& lexicon);

}  // namespace quorvane
