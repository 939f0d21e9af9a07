// All that says what is searched: one value, whoever asks.
#pragma once

#include <string>

#include "search/character_lists.h"
#include "search/word_type.h"

namespace quorvane {

// The range of word lengths; `any` when no range is chosen.
struct LengthRange {
  bool any = true;
  int min = 1;
  int max = 8;
};

struct Search {
  std::string text;  // As the input check leaves it.
  WordType mode = WordType::WordList;
  std::string noun = "word";  // What is counted: "full anagram", "Random word".
  LengthRange lengths;
  CharacterLists lists;
};

}  // namespace quorvane
