// The command line's options in the form that the commands use.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "results/result_list.h"
#include "results/summary.h"
#include "search/character_lists.h"
#include "search/word_type.h"

namespace quorvane::cli {

struct SearchArguments {
  std::string pattern;
  std::string typeName = "word";
  std::string include = "abcdefghijklmnopqrstuvwxyz";
  std::string exclude;
  std::string rack;

  WordType type = WordType::WordList;
  CharacterLists lists;
  // Fills the last two from the others; the text of what is wrong, if anything is.
  std::optional<std::string> Settle();
};

struct FindArguments {
  SearchArguments search;
  std::string lexicon;
  std::string dataDir;
  std::string lengthText;
  std::string sortName = "alpha";
  bool upper = false;
  bool count = false;
  bool time = false;
  bool json = false;
  std::optional<uint32_t> seed;
  std::string saveFile;
  std::string saveLexicon;

  LengthRange range;
  SortOrder order = SortOrder::Alphabetic;
  bool FromStandardInput() const { return search.pattern == "-"; }
  std::optional<std::string> Settle();
};

// Arguments with "--include=" and its like split in two, so that an empty value stays the option's own.
// `takesValue` says of an option's name whether the option has one.
std::vector<std::string> SplitEmptyValues(int argc, const char* const* argv,
                                          const std::function<bool(const std::string& name)>& takesValue);

}  // namespace quorvane::cli
