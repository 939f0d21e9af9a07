#include "results/results_file.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"
#include "results/summary.h"
#include "search/conditions.h"

namespace quorvane {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr size_t kReportEvery = size_t{1} << 16;  // Words between two reports of progress.
constexpr std::string_view kStartOfList = "--- START OF LIST ---";
constexpr std::string_view kEndOfList = "--- END OF LIST ---";

void WriteLine(FileWriter& out, std::string_view text) {
  out.Write(text);
  out.Write(kLineEnd);
}

}  // namespace

void WriteWords(FileWriter& out, const WordSequence& words, std::string_view lineEnd, const WriteProgress& progress) {
  // Words in the case of one of the lexicon's texts are copied 16 characters at a time; each is followed by at least as
  // many bytes that may be read.
  const Lexicon* lexicon = words.lexicon;
  size_t written = 0;
  for (const WordNumber number : words.numbers) {
    if (++written % kReportEvery == 0 && progress) {
      progress(static_cast<int>(100 * written / words.numbers.size()));
    }
    const std::string_view word =
        words.letterCase == LetterCase::Lower ? lexicon->FoldedWord(number) : lexicon->Word(number);
    char* to = out.Cursor();
    for (size_t i = 0; i < word.size(); i += 16) {
      std::memcpy(to + i, word.data() + i, 16);
    }
    if (words.letterCase == LetterCase::Upper) {
      std::transform(to, to + word.size(), to, Upper);
    }
    std::memcpy(to + word.size(), lineEnd.data(), lineEnd.size());
    out.Advance(word.size() + lineEnd.size());
  }
}

std::optional<FileError> WriteResultsFile(const std::string& path, const Search& said, const ResultList& results,
                                          SortOrder order, const WriteProgress& progress) {
  return ReplaceFile(path, [&](FileWriter& out) {
    WriteLine(out, HeaderLine(results.FoundCount(), said));
    for (const ListKind kind : ListsNamedIn(said)) {
      WriteLine(out, std::string(FactsOf(kind).fileLegend) + BracketForm(said.lists.Of(kind)));
    }
    for (const std::string& condition : ConditionTexts(said)) {
      WriteLine(out, " " + condition);
    }
    if (results.FoundCount() < 1) {
      return;
    }
    WriteLine(out, "");
    WriteLine(out, kStartOfList);
    WriteWords(out, results.WordsIn(order), kLineEnd, progress);
    WriteLine(out, kEndOfList);
  });
}

std::optional<FileError> WriteResultsAsLexicon(const std::string& path, const ResultList& results, SortOrder order,
                                               const WriteProgress& progress) {
  return ReplaceFile(path, [&](FileWriter& out) { WriteWords(out, results.WordsIn(order), kLineEnd, progress); });
}

}  // namespace quorvane
