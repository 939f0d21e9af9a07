// A search as the command line that finds the same words.
#pragma once

#include <string>
#include <string_view>

#include "results/sort_order.h"
#include "search/search.h"

namespace quorvane {

// Options of the command line, without their dashes; the others stand beside what they choose.
inline constexpr std::string_view kLexiconOption = "lexicon";
inline constexpr std::string_view kDataDirOption = "data-dir";
inline constexpr std::string_view kUpperOption = "upper";

struct SearchCommand {
  const Search& search;
  SortOrder order = SortOrder::Alphabetic;
  bool upperCase = false;
  std::string lexicon{};         // Its path; empty: none is said.
  std::string directory{};       // The program's directory.
  std::string usualDirectory{};  // The one of a shell that says none (UsualProgramDirectory).
};

// "quorvane-cli find --lexicon gb.lex --length 7 --rack 'aeinrt?' -- '==c=='": every option that is not as usual and no
// other, for a shell. A lexicon of the program's directory is called by its name, after the directory where that is not
// the usual one; any other by its path.
std::string CommandOf(const SearchCommand& command);

// The text as one word of a shell: plain, or in single quotes. UTF-8 stands as it is; control characters other than
// line ends, and bytes that are no UTF-8, are named by `printf`, so that pasting the word into a terminal does nothing
// else.
std::string ShellWord(std::string_view text);

}  // namespace quorvane
