// The preparation of a typed text for a search.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "search/character_lists.h"
#include "search/word_type.h"

namespace quorvane {

// The longest text that is searched, in characters.
inline constexpr size_t kMaxPatternLength = 32767;

// `PatternKind`, as the numbers that the program shows.
enum class PatternKind : int {
  NoAsterisk = 0,
  OneAsterisk = 1,
  Contains = 2,       // "*xxx*"
  TwoAsterisks = 8,   // Two asterisks anywhere else.
  Anagram = 9,        // Any words from some or all of the letters.
  AnagramExact = 10,  // Rearrangements of all letters.
  Sequence = 11,      // "%"
  Random = 12,        // "~"; while typing only.
  LetterChoice = 13,  // ";"
  Tiles = 14,         // Any number of tiles; of a condition only.
};

// What is said of a text that can't be searched.
struct PatternRefusal {
  std::string boxText;
  std::string statusText;
};

// The parts of a letter sequence "%NXXX>", in the letter case given.
struct SequenceParts {
  std::string letters;
  std::optional<int> times;  // Nothing when the second character is no digit.
  bool orMore = false;
};
SequenceParts SplitSequence(std::string_view text);

// A text in the form that a search works with: no later step looks for special characters to find its parts.
struct PreparedPattern {
  std::string text;  // All of it, in lower case and normalised.
  PatternKind kind = PatternKind::NoAsterisk;
  std::optional<PatternRefusal> refusal;  // Then there is nothing to search.
  // Around the asterisks: without one all is prefix; with one there are prefix and suffix; "*xxx*" is middle alone.
  std::string prefix;
  std::string middle;
  std::string suffix;
  std::string letters;             // Of an anagram, a letter sequence, a letter choice; the tiles.
  std::optional<int> times;        // Of a letter sequence; nothing when no number stands there.
  bool orMore = false;             // Of a letter sequence.
  bool anyOrder = false;           // Of a letter choice.
  std::optional<int> randomCount;  // Random words are asked for: so many.

  bool Empty() const { return text.empty(); }
  bool HasMiddle() const { return kind == PatternKind::Contains || kind == PatternKind::TwoAsterisks; }
};

// The number behind the "~" of `text`; 1 when none stands there.
int RandomCount(std::string_view text);

PreparedPattern PreparePattern(std::string_view text, WordType type);

// All characters from the lowest code to the highest.
std::string SortLetters(std::string_view text);
// The distinct characters from the lowest code to the highest, of the first 60 characters; without the brackets of a
// list in bracket form.
std::string SortList(std::string_view text);

// Where a scan looks: the words with these initials, in upper case and in the order of the scan, or all words.
struct Initials {
  bool wholeLexicon = false;
  std::string letters;
};
Initials FirstLetters(const PreparedPattern& prepared, const CharacterLists& lists);

}  // namespace quorvane
