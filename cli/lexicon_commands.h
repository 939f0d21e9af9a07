// The commands about lexicons.
#pragma once

#include <string>
#include <vector>

#include "lexicon/lexicon.h"

namespace quorvane::cli {

// What went wrong with a load, and where, in one line.
std::string DescribeLoad(const std::string& path, const LoadResult& loaded);

// The lexicon that a command works on: `lexicon`, or else the default one of the program's directory.
std::string LexiconPath(const std::string& lexicon, const std::string& dataDir);

// Each returns the exit status.
int ShowStatistics(const std::string& path);
int CheckLexicon(const std::string& path, bool json);
int MakeLexicon(const std::vector<std::string>& inputs, const std::string& outputPath);

}  // namespace quorvane::cli
