#include "lexicon/make_report.h"

#include <algorithm>
#include <span>
#include <utility>

#include "base/text.h"
#include "lexicon/encoding.h"

namespace quorvane {
namespace {

constexpr size_t kExamplesShown = 3;
constexpr size_t kExamplesKept = 100;
constexpr size_t kLongestExample = 60;  // In bytes.

struct LineKindRow {
  LineKind kind;
  std::string_view text;
  bool leftOut;
};

constexpr std::array<LineKindRow, kLineKinds> kRows = {{
    {LineKind::Word, "word", false},
    {LineKind::Joined, "joined", false},
    {LineKind::Cut, "cut to the first word", false},
    {LineKind::Heading, "heading", false},
    {LineKind::Repeated, "repeated", false},
    {LineKind::Empty, "empty", true},
    {LineKind::Phrase, "of several words", true},
    {LineKind::TooLong, "longer than 90 letters", true},
    {LineKind::OtherCharacters, "with characters other than letters", true},
    {LineKind::NoColumn, "without that column", true},
}};

bool ShowsExamples(LineKind kind) {
  return kind != LineKind::Word && kind != LineKind::Empty;
}

std::string Shortened(std::string_view line) {
  const std::string_view start = CutUtf8(line, kLongestExample);
  return QuotedText(start) + (start.size() < line.size() ? "..." : "");
}

// "2 joined ('New York' becomes newyork, 'ice cream' becomes icecream)".
std::string TextOf(const LineKindRow& row, const LineCount& line) {
  std::string text = FormatThousands(line.count) + " " + std::string(row.text);
  if (row.kind == LineKind::Word || row.kind == LineKind::Heading) {
    text += PluralS(line.count);
  }
  std::string_view before = " (";
  for (const LineExample& example : std::span(line.examples).first(std::min(line.examples.size(), kExamplesShown))) {
    text += std::string(before) + "'" + example.line + "'" + (example.word.empty() ? "" : " becomes " + example.word);
    before = ", ";
  }
  return text + (line.examples.empty() ? "" : ")");
}

}  // namespace

int64_t MakeReport::Lines() const {
  int64_t lines = 0;
  for (const LineCount& kind : kinds) {
    lines += kind.count;
  }
  return lines;
}

int64_t MakeReport::Words() const {
  return Of(LineKind::Word).count + Of(LineKind::Joined).count + Of(LineKind::Cut).count;
}

int64_t MakeReport::LeftOut() const {
  int64_t lines = 0;
  for (const LineKindRow& row : kRows) {
    lines += row.leftOut ? Of(row.kind).count : 0;
  }
  return lines;
}

void MakeReport::Count(LineKind kind, std::string_view line, std::string_view word) {
  LineCount& lines = kinds[static_cast<size_t>(kind)];
  ++lines.count;
  if (lines.examples.size() >= kExamplesKept || !ShowsExamples(kind)) {
    return;
  }
  LineExample example{Shortened(line), std::string(word)};
  const auto shown = std::span(lines.examples).first(std::min(lines.examples.size(), kExamplesShown));
  const bool known = word.empty() && std::any_of(shown.begin(), shown.end(),
                                                 [&](const LineExample& other) { return other.line == example.line; });
  if (!known) {
    lines.examples.push_back(std::move(example));
  }
}

void MakeReport::Repeat(LineKind kind, std::string_view word) {
  LineCount& lines = kinds[static_cast<size_t>(kind)];
  --lines.count;
  // Of the lines that gave one word the first is kept.
  const auto last = std::find_if(lines.examples.rbegin(), lines.examples.rend(),
                                 [&](const LineExample& example) { return example.word == word; });
  if (last != lines.examples.rend()) {
    lines.examples.erase(std::next(last).base());
  }
  Count(LineKind::Repeated, word);
}

std::string TextOf(const MakeReport& report) {
  std::string text = FormatThousands(report.Lines()) + " line" + std::string(PluralS(report.Lines()));
  if (report.linesInQuotes > 0) {
    text += ", " + FormatThousands(report.linesInQuotes) + " more within quotes";
  }
  std::string_view before = ": ";
  bool leftOut = false;
  for (const LineKindRow& row : kRows) {
    if (report.Of(row.kind).count == 0 && row.kind != LineKind::Word) {
      continue;
    }
    text += before;
    before = ", ";
    if (row.leftOut && !leftOut) {
      text += FormatThousands(report.LeftOut()) + " left out: ";
      leftOut = true;
    }
    text += TextOf(row, report.Of(row.kind));
  }
  return text;
}

}  // namespace quorvane
