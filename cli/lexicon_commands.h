// The commands about lexicons.
#pragma once

#include <optional>
#include <string>

#include "lexicon/lexicon.h"

namespace quorvane::cli {

// What went wrong with a load, and where, in one line.
std::string DescribeLoad(const std::string& path, const LoadResult& loaded);

// The lexicon that a command works on: the file `lexicon`; for a name without "/" that is no file here NAME.lex or NAME
// of the program's directory; for nothing the default one there. Nothing, with a message, when there is no such file.
std::optional<std::string> LexiconPath(const std::string& lexicon, const std::string& dataDir);

// Each returns the exit status.
int ShowStatistics(const std::string& lexicon, const std::string& dataDir);
// A line for each lexicon of the program's directory: its name and count, or what is wrong with it.
int ListLexicons(const std::string& dataDir);
// The names alone. Nothing is loaded, and no directory is made.
int ListLexiconNames(const std::string& dataDir);
int CheckLexicon(const std::string& path, bool json);

}  // namespace quorvane::cli
