// Lexicons made of word lists: `lexicon make` and the options that name lists.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lexicon/lexicon.h"
#include "lexicon/lexicon_maker.h"

namespace quorvane::cli {

struct MakeArguments {
  std::vector<std::string> inputs;
  std::string output;
  int column = 1;
  std::string separatorName;  // Empty: not given.
  std::string phrasesName = "first";
  bool heading = false;

  MakerOptions options;
  // Fills the last from the others; the text of what is wrong, if anything is.
  std::optional<std::string> Settle();
};

// Makes a lexicon file of the inputs, of which "-" is standard input; the exit status.
int MakeLexicon(const MakeArguments& arguments);

// The words of all the lists as a lexicon, made as MakeLexicon does without options. Null, with a message, when it
// can't be made.
std::shared_ptr<const Lexicon> LexiconOfLists(const std::vector<std::string>& inputs);

}  // namespace quorvane::cli
