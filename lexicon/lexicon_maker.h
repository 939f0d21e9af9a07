// Makes a lexicon of word lists.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/file.h"
#include "lexicon/list_lines.h"
#include "lexicon/make_report.h"
#include "lexicon/word_collector.h"

namespace quorvane {

// What becomes of a cell of several words.
enum class Phrases {
  LeaveOut,
  Join,       // "ice cream" becomes icecream.
  FirstWord,  // Up to the first blank, tab, comma or semicolon; none where a line begins with one of them.
};

struct PhrasesRow {
  Phrases phrases;
  std::string_view option;  // The name on the command line.
  std::string_view meaning;
};
std::span<const PhrasesRow> PhrasesRows();
std::optional<Phrases> PhrasesOfOption(std::string_view option);

struct MakerOptions {
  Separator separator = Separator::Found;
  int column = 1;        // Of the words, counted from 1.
  bool heading = false;  // The first line of each list is a heading.
  Phrases phrases = Phrases::LeaveOut;
};

struct MadeLexicon {
  std::string text;  // As a lexicon file holds it: one word a line, each ended by CR LF, in order.
  MakeReport report;
  // Why it is no lexicon: no word, or more than 2,000,000; empty when it is one.
  std::string problem;
};

// Collects words from lists in any order, case and encoding that AsUtf8 knows; case and accents are folded to a-z.
class LexiconMaker {
 public:
  explicit LexiconMaker(MakerOptions options = {}) : options_(options) {}

  // At most the first `mostLines` lines. `progress`, if given, is told now and then how many percent are read.
  void AddList(std::string_view bytes, int64_t mostLines = std::numeric_limits<int64_t>::max(),
               const std::function<void(int percent)>& progress = {});

  // Ends the collection.
  MadeLexicon Finish();

 private:
  size_t AddPlainLine(std::string_view rest);
  void AddLine(const ListLine& line, Separator separator);
  void AddFolded(LineKind kind, std::string_view shown, std::string_view words);

  const MakerOptions options_;
  MakeReport report_;
  WordCollector words_;
  std::string word_;     // What is being folded.
  std::string scratch_;  // What is being taken out of its quotes.
};

// What a list looks like under the options, of its first bytes.
struct MakerPreview {
  Separator separator = Separator::None;        // The one found, where that is asked for.
  std::vector<std::vector<std::string>> lines;  // The cells of the first lines, in UTF-8, each shortened to 200 bytes.
  MakeReport report;                            // Of the first 100,000 lines.
};
inline constexpr int64_t kPreviewedLines = 100'000;
inline constexpr size_t kPreviewedCells = 50;  // Of one line.
MakerPreview Preview(std::string_view bytes, const MakerOptions& options, size_t mostLines = 100);

// Whole or not at all.
std::optional<FileError> WriteLexiconFile(const std::string& path, const MadeLexicon& made);

}  // namespace quorvane
