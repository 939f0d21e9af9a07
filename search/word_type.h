// The four search modes.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace quorvane {

enum class WordType { WordList, Palindrome, Anagram, AnagramExact };

// What the special modes of typing count.
inline constexpr std::string_view kRandomNoun = "Random word";
inline constexpr std::string_view kSequenceNoun = "sequenced word";
inline constexpr std::string_view kLetterChoiceNoun = "letter choice";

inline constexpr std::string_view kWordPrompt = "Please enter a word selection.";

inline constexpr std::string_view kTypeOption = "type";  // On the command line, without its dashes.

struct WordTypeFacts {
  WordType type;
  std::string_view option;         // The name on the command line.
  std::string_view noun;           // `WordTypeNoun` while the mode is selected.
  std::string_view searchCaption;  // Caption of the search button.
  std::string_view prompt;         // Shown when a search is started with nothing typed.
  // The mode's button, its menu item and the function key of both.
  std::string_view objectName;
  std::string_view caption;
  std::string_view toolTip;
  std::string_view spokenName;  // For a screen reader, where the caption does not tell it apart; else empty.
  std::string_view menuItem;
  std::string_view menuCaption;
  int functionKey;
};

// By WordType.
std::span<const WordTypeFacts> WordTypes();
const WordTypeFacts& FactsOf(WordType type);
std::optional<WordType> WordTypeOfOption(std::string_view option);

constexpr bool IsAnagram(WordType type) {
  return type == WordType::Anagram || type == WordType::AnagramExact;
}

}  // namespace quorvane
