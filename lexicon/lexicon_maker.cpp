#include "lexicon/lexicon_maker.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "lexicon/encoding.h"
#include "lexicon/lexicon.h"
#include "lexicon/plain_letters.h"

namespace quorvane {
namespace {

constexpr std::array kPhrases = {
    PhrasesRow{Phrases::LeaveOut, "skip", "left out"},
    PhrasesRow{Phrases::Join, "join", "joined"},
    PhrasesRow{Phrases::FirstWord, "first", "cut to their first word"},
};

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kWordEnds = " \t,;";
constexpr size_t kLongestCellShown = 200;  // In bytes.
constexpr size_t kProgressSteps = 50;

// The lower case of a letter of ASCII; 0 of everything else.
constexpr std::array<char, 256> kLowerLetters = [] {
  std::array<char, 256> lower{};
  for (unsigned char c = 'a'; c <= 'z'; ++c) {
    lower[c] = static_cast<char>(c);
    lower[c - 'a' + 'A'] = static_cast<char>(c);
  }
  return lower;
}();

std::string_view Trimmed(std::string_view cell) {
  const size_t first = cell.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view{}
                                         : cell.substr(first, cell.find_last_not_of(kBlanks) - first + 1);
}

Separator Settled(Separator asked, std::string_view text) {
  return asked == Separator::Found ? FindSeparator(text) : asked;
}

// What is wrong with what was made.
std::string ProblemOf(int64_t words, bool atLeast) {
  if (words == 0) {
    return "no word was kept";
  }
  if (words <= kLexiconCapacity) {
    return {};
  }
  return (atLeast ? "about " : "") + FormatThousands(words) + " words are more than a lexicon holds (" +
         FormatThousands(kLexiconCapacity) + ")";
}

}  // namespace

std::span<const PhrasesRow> PhrasesRows() {
  return kPhrases;
}

std::optional<Phrases> PhrasesOfOption(std::string_view option) {
  for (const PhrasesRow& row : kPhrases) {
    if (row.option == option) {
      return row.phrases;
    }
  }
  return std::nullopt;
}

void LexiconMaker::AddList(std::string_view bytes, int64_t mostLines, const std::function<void(int)>& progress) {
  std::string converted;
  std::string_view rest = AsUtf8(bytes, converted);
  const Separator separator = Settled(options_.separator, rest);
  words_.Expect(rest.size());
  const size_t whole = rest.size();
  // What is left when the next step is told.
  size_t told = progress ? whole - whole / kProgressSteps : 0;
  for (int64_t line = 0; !rest.empty() && line < mostLines; ++line) {
    const bool heading = options_.heading && line == 0;
    size_t taken = heading ? 0 : AddPlainLine(rest);
    if (taken == 0) {
      const ListLine first = FirstLine(rest, separator);
      report_.linesInQuotes += first.linesInside;
      taken = first.bytes;
      if (heading) {
        report_.Count(LineKind::Heading, first.text);
      } else {
        AddLine(first, separator);
      }
    }
    rest.remove_prefix(taken);
    if (rest.size() < told) {
      progress(static_cast<int>((whole - rest.size()) * 100 / whole));
      told = rest.size() - std::min(rest.size(), whole / kProgressSteps);
    }
  }
}

// Most lines of most lists are letters alone: those are the word, whatever separates cells. How long the first line is
// when it is such a line, which is then added; else 0.
size_t LexiconMaker::AddPlainLine(std::string_view rest) {
  std::array<char, kMaxWordLength> word;
  const size_t most = std::min(rest.size(), word.size());
  size_t length = 0;
  while (length < most && (word[length] = kLowerLetters[static_cast<unsigned char>(rest[length])]) != 0) {
    ++length;
  }
  size_t end = length;
  end += end < rest.size() && rest[end] == '\r' ? 1 : 0;
  if (length == 0 || options_.column != 1 || (end < rest.size() && rest[end] != '\n')) {
    return 0;
  }
  report_.Count(LineKind::Word, {});
  words_.Add({word.data(), length}, LineKind::Word, report_);
  return std::min(end + 1, rest.size());
}

void LexiconMaker::AddLine(const ListLine& line, Separator separator) {
  const auto cell = CellOf(line, separator, options_.column, scratch_);
  if (!cell) {
    report_.Count(LineKind::NoColumn, line.text);
    return;
  }
  const std::string_view text = Trimmed(*cell);
  if (options_.phrases == Phrases::FirstWord) {
    // An indented line explains the one above it.
    const std::string_view whole = options_.column == 1 ? *cell : text;
    const size_t end = std::min(whole.find_first_of(kWordEnds), whole.size());
    const bool cut = whole.find_first_not_of(kBlanks, end) != std::string_view::npos;
    AddFolded(cut ? LineKind::Cut : LineKind::Word, cut && end > 0 ? text : whole, whole.substr(0, end));
  } else if (text.find_first_of(kBlanks) == std::string_view::npos) {
    AddFolded(LineKind::Word, text, text);
  } else if (options_.phrases == Phrases::Join) {
    AddFolded(LineKind::Joined, text, text);
  } else {
    report_.Count(LineKind::Phrase, text);
  }
}

// Counts a line of that kind and adds the letters of `words`, joined; or counts why it is left out.
void LexiconMaker::AddFolded(LineKind kind, std::string_view shown, std::string_view words) {
  constexpr size_t kTooLong = kMaxWordLength + 1;
  word_.clear();
  for (size_t i = 0; i < words.size();) {
    const int32_t codePoint = NextCodePoint(words, i);
    if (codePoint == ' ' || codePoint == '\t') {
      continue;
    }
    if (!AppendPlain(codePoint, word_)) {
      report_.Count(LineKind::OtherCharacters, shown);
      return;
    }
    word_.resize(std::min(word_.size(), kTooLong));
  }
  if (word_.empty() || word_.size() == kTooLong) {
    report_.Count(word_.empty() ? LineKind::Empty : LineKind::TooLong, shown);
    return;
  }
  report_.Count(kind, shown, word_);
  words_.Add(word_, kind, report_);
}

MadeLexicon LexiconMaker::Finish() {
  MadeLexicon made;
  made.text = words_.Finish(report_);
  made.report = std::move(report_);
  made.problem = ProblemOf(made.report.Words(), words_.Overfull());
  return made;
}

MakerPreview Preview(std::string_view bytes, const MakerOptions& options, size_t mostLines) {
  MakerPreview preview;
  std::string converted;
  std::string_view rest = AsUtf8(bytes, converted);
  preview.separator = Settled(options.separator, rest);
  while (!rest.empty() && preview.lines.size() < mostLines) {
    const ListLine line = FirstLine(rest, preview.separator);
    rest.remove_prefix(line.bytes);
    std::vector<std::string> cells = CellsOf(line, preview.separator, kPreviewedCells);
    for (std::string& cell : cells) {
      cell = CutUtf8(cell, kLongestCellShown);
    }
    preview.lines.push_back(std::move(cells));
  }
  LexiconMaker maker(options);
  maker.AddList(bytes, kPreviewedLines);
  preview.report = maker.Finish().report;
  return preview;
}

std::optional<FileError> WriteLexiconFile(const std::string& path, const MadeLexicon& made) {
  return ReplaceFile(path, [&made](FileWriter& out) { out.Write(made.text); });
}

}  // namespace quorvane
