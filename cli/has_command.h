// `has`: whether words are in a lexicon.
#pragma once

#include <string>
#include <vector>

namespace quorvane::cli {

struct HasArguments {
  std::vector<std::string> words;  // "-": each line of standard input.
  std::string lexicon;
  std::string dataDir;
  std::vector<std::string> wordLists;
};

// Says of each word "WORD: yes" or "WORD: no"; the exit status, kNothingFound when some word is none.
int Has(const HasArguments& arguments);

}  // namespace quorvane::cli
