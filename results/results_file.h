// The results file, and the lexicon file that is made of results.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/file.h"
#include "results/result_list.h"
#include "search/character_lists.h"

namespace quorvane {

inline constexpr const char* kDefaultResultsName = "outlist.txt";

struct ResultsFileHeader {
  size_t count = 0;
  std::string noun;
  std::string typed;
  CharacterLists lists;
};

// What the status line says while the file is written.
std::string WritingStatus(size_t count, const std::string& noun);
// The first line: what was searched for and how many were found. The printed title has the same words.
std::string HeaderLine(const ResultsFileHeader& header);

// Told now and then how many percent of the words are written.
using WriteProgress = std::function<void(int percent)>;

// Writes the words, each followed by `lineEnd` (at most two characters).
void WriteWords(FileWriter& out, const WordSequence& words, std::string_view lineEnd,
                const WriteProgress& progress = {});

// Writes header, legend and words; an empty result has neither list nor markers. Lines end with CR LF.
std::optional<FileError> WriteResultsFile(const std::string& path, const ResultsFileHeader& header,
                                          const WordSequence& words, const WriteProgress& progress = {});
// Writes the words alone, one a line.
std::optional<FileError> WriteResultsAsLexicon(const std::string& path, const WordSequence& words,
                                               const WriteProgress& progress = {});

}  // namespace quorvane
