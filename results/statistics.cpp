#include "results/statistics.h"

#include "base/limits.h"

namespace quorvane {

std::array<StatisticsRow, 26> CountByLetter(const Lexicon& lexicon) {
  std::array<StatisticsRow, 26> rows;
  for (size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {std::string(1, static_cast<char>('A' + i)), lexicon.letterStart()[i + 1] - lexicon.letterStart()[i]};
  }
  return rows;
}

std::array<StatisticsRow, kLengthRows> CountByLength(const Lexicon& lexicon) {
  std::array<StatisticsRow, kLengthRows> rows;
  for (size_t length = 1; length <= kLongestLengthOffered; ++length) {
    const bool long26 = length >= kLengthRows;
    StatisticsRow& row = rows[long26 ? kLengthRows - 1 : length - 1];
    row.label = long26 ? std::string("26+") : std::to_string(length);
    row.count += lexicon.lengthCount()[length];
  }
  return rows;
}

}  // namespace quorvane
