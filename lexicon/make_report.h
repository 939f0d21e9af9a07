// What became of the lines of word lists.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// Every line is of one kind.
enum class LineKind : uint8_t {
  Word,
  Joined,  // Several words made one.
  Cut,     // The first of several words.
  Heading,
  Repeated,  // Of a word that another line gave.
  // Left out:
  Empty,
  Phrase,  // Several words.
  TooLong,
  OtherCharacters,
  NoColumn,  // Fewer cells than the column's number.
};
inline constexpr size_t kLineKinds = 10;

struct LineExample {
  std::string line;  // The cell, shortened; where there is none the line.
  std::string word;  // What became of it.
};

struct LineCount {
  int64_t count = 0;
  std::vector<LineExample> examples;  // The first; more than are shown, since a line may turn out to repeat a word.
};

struct MakeReport {
  int64_t linesInQuotes = 0;  // Lines that are part of another line's cell.
  std::array<LineCount, kLineKinds> kinds;

  const LineCount& Of(LineKind kind) const { return kinds[static_cast<size_t>(kind)]; }
  int64_t Lines() const;  // All of them: the sum of the kinds.
  int64_t Words() const;  // Those of the lexicon.
  int64_t LeftOut() const;

  void Count(LineKind kind, std::string_view line, std::string_view word = {});
  // A line that was counted as `kind` repeats a word.
  void Repeat(LineKind kind, std::string_view word);
};

// "14 lines: 9 words, 1 joined ('New York' becomes newyork), 1 heading ('Word'), 1 repeated ('cat'), 2 left out: 1
// empty, 1 with characters other than letters ('it's')". Kinds without lines are not named. In UTF-8.
std::string TextOf(const MakeReport& report);

}  // namespace quorvane
