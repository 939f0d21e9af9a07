// The preparation of a typed text for a search.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/run_time_error.h"
#include "search/character_lists.h"
#include "search/word_type.h"

namespace quorvane {

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
};

inline constexpr std::string_view kRefusedPattern = "***";

struct PreparedPattern {
  std::string pattern;  // In lower case and normalised; kRefusedPattern when there is nothing to search.
  PatternKind kind = PatternKind::NoAsterisk;
  std::string boxText;     // Of the message box of a refusal, else empty.
  std::string statusText;  // Of the status line after a refusal, else empty.

  bool Refused() const { return pattern == kRefusedPattern; }
  bool Random() const { return pattern.starts_with('~'); }
};

PreparedPattern PreparePattern(std::string_view text, WordType type);

inline constexpr size_t kMaxSortedLetters = 60;

// The characters of a prepared pattern from the highest code to the lowest. Over 60 characters: error 9.
struct SortedLettersResult {
  std::string letters;
  std::optional<RunTimeError> error;
};
SortedLettersResult SortedLetters(std::string_view pattern);

// All characters from the lowest code to the highest.
std::string SortLetters(std::string_view text);
// The distinct characters from the lowest code to the highest, of the first 60 characters; without the brackets of a
// list in bracket form.
std::string SortList(std::string_view text);

// The initials, in upper case, of the words that may match, in the order of the scan; "&" stands for the whole lexicon.
std::string FirstLetters(std::string_view pattern, PatternKind kind, const CharacterLists& lists);

}  // namespace quorvane
