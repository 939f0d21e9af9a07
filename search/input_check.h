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

// What the controls beside the pattern box show and allow. A text's mode sets only what it speaks of (a letter choice,
// for one, leaves the letter count and what is allowed): the next check starts from what the last one left.
struct InputControls {
  WordType selected = WordType::WordList;
  std::string noun = "word";
  std::string letters;     // Text of the letter count.
  bool canSearch = true;   // The search button.
  bool anagrams = true;    // Both anagram buttons and their menu items.
  bool palindrome = true;  // The palindrome button and its menu item.
  bool saveAsLexicon = true;
};

struct InputQuestion {
  std::string text;
  size_t caret = 0;  // 0 to the length of the text.
  InputControls controls;
};

struct InputAnswer {
  std::string text;
  size_t caret = 0;
  InputControls controls;
  int kind = 0;  // The asterisks of a plain pattern, or the PatternKind of a special mode.
  // What is said, in the order said.
  std::vector<std::string> statusTexts;
  std::vector<std::string> logTexts;  // Entries of the code "INPERR".
  int beeps = 0;
  std::optional<RunTimeError> error;  // 5 when the caret lies outside the text; all else is as it was asked.

  std::string LastStatus() const { return statusTexts.empty() ? "" : statusTexts.back(); }
};

// Checks a text. Each change that the check makes is checked again before it goes on, so that a refusal's text is the
// last one. A clean text comes back as it is. Takes time in proportion to the text.
InputAnswer CheckInput(InputQuestion question, const CharacterLists& lists);

// Selects a mode as its button does. Typing may select the word list, too.
void SelectWordType(InputControls& controls, WordType type);

}  // namespace quorvane
