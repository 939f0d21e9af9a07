// One search: all that says what is searched. Whatever is said of a list of found words comes from the search that made
// it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "search/character_lists.h"
#include "search/length_range.h"
#include "search/word_type.h"

namespace quorvane {

// What a condition asks of a word: that it fits a pattern, or does not; that it holds all letters of the text, each as
// often as it stands there; that it holds none of them; that it can be laid with the text's tiles, each once.
enum class ConditionKind { And, Not, With, Without, From };
inline constexpr size_t kConditionKinds = 5;

struct Condition {
  ConditionKind kind = ConditionKind::And;
  std::string text;
};

struct Search {
  std::string text{};  // As the input check leaves it.
  WordType mode = WordType::WordList;
  std::string noun = "word";  // What is counted: "full anagram", "Random word".
  LengthRange lengths{};
  CharacterLists lists{};               // As stored, letter case and all.
  std::vector<Condition> conditions{};  // Beside the text; a word must meet them all.
};

}  // namespace quorvane
