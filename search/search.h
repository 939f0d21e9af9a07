// One search: all that says what is searched. Whatever is said of a list of found words comes from the search that made
// it.
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
  CharacterLists lists;  // As stored, letter case and all.
};

}  // namespace quorvane
