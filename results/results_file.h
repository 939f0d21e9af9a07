// The results file, and the lexicon file that is made of results.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/file.h"
#include "results/result_list.h"

namespace quorvane {

inline constexpr const char* kDefaultResultsName = "outlist.txt";

// Told now and then how many percent of the words are written.
using WriteProgress = std::function<void(int percent)>;

// Writes the words, each followed by `lineEnd` (at most two characters).
void WriteWords(FileWriter& out, const WordSequence& words, std::string_view lineEnd,
                const WriteProgress& progress = {});

// Writes header, legend and the words in that order; an empty result has neither list nor markers. Lines end with CR
// LF. `said` is the search that the header names.
std::optional<FileError> WriteResultsFile(const std::string& path, const Search& said, const ResultList& results,
                                          SortOrder order, const WriteProgress& progress = {});
// Writes the words alone, one a line.
std::optional<FileError> WriteResultsAsLexicon(const std::string& path, const ResultList& results, SortOrder order,
                                               const WriteProgress& progress = {});

}  // namespace quorvane
