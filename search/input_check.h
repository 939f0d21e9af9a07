// The check of the typed text: run at every change of the pattern box. It removes what the pattern language does not
// allow, keeps its limits, and says what each control shows and allows.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "search/character_lists.h"
#include "search/pattern.h"
#include "search/word_type.h"

namespace quorvane {

inline constexpr int kBeepsOfRefusal = 4;
inline constexpr std::string_view kNoSequenceNumber = "'%' allows selection on sequences - enter a number";

// What the check reads and writes. A caller keeps one of these from change to change.
struct InputState {
  std::string text;
  size_t caret = 0;  // 0 to the length of the text.
  WordType selected = WordType::WordList;

  int patternKind = 0;  // The asterisks of a plain pattern, or 11, 12, 13 of a special mode.
  std::string noun = "word";
  std::string letters;     // Text of the letter count.
  bool canSearch = true;   // The search button.
  bool anagrams = true;    // Both anagram buttons and their menu items.
  bool palindrome = true;  // The palindrome button and its menu item.
  bool saveAsLexicon = true;
  int randomCount = 1;  // Of "~".
};

// What the check says, in the order said.
struct InputMessages {
  std::vector<std::string> statusTexts;
  std::vector<std::string> logTexts;  // Entries of the code "INPERR".
  int beeps = 0;
  std::optional<RunTimeError> error;  // 5 when the caret lies outside the text; the text is left as it is.

  std::string LastStatus() const { return statusTexts.empty() ? "" : statusTexts.back(); }
};

// Checks `state.text`. Each change that the check makes is checked again before it goes on, so that a refusal's text is
// the last one. A clean text comes back as it is.
InputMessages CheckInput(InputState& state, const CharacterLists& lists);

// Selects a mode as its button does. Typing may select the word list, too.
void SelectWordType(InputState& state, WordType type);

}  // namespace quorvane
