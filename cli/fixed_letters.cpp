#include "cli/fixed_letters.h"

#include <algorithm>

#include "search/wildcards.h"

namespace quorvane::cli {
namespace {

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kNormal = "\x1b[0m";
constexpr char kFixed = '+';
constexpr char kFree = ' ';

void Mark(std::string& marks, size_t start, std::string_view pattern) {
  std::transform(pattern.begin(), pattern.end(), marks.begin() + static_cast<std::ptrdiff_t>(start),
                 [](char c) { return StandsFor(c) == Stands::Itself ? kFixed : kFree; });
}

}  // namespace

FixedLetters::FixedLetters(const PreparedPattern& prepared, const CharacterLists& lists)
    : prepared_(prepared), wordTest_(prepared, lists) {}

std::string FixedLetters::Marks(std::string_view folded) {
  std::string marks(folded.size(), kFree);
  // No word fits a request for random words; the other patterns without places have neither prefix nor suffix.
  if (wordTest_.Accepts(folded)) {
    Mark(marks, 0, prepared_.prefix);
    Mark(marks, folded.size() - prepared_.suffix.size(), prepared_.suffix);
    if (prepared_.HasMiddle()) {
      Mark(marks, wordTest_.MiddleStart(), prepared_.middle);
    }
  }
  return marks;
}

std::string FixedLetters::InBold(std::string_view shown, std::string_view folded) {
  const std::string marks = Marks(folded);
  std::string text;
  for (size_t i = 0; i < shown.size(); ++i) {
    const bool fixed = marks[i] == kFixed;
    if (fixed && (i == 0 || marks[i - 1] == kFree)) {
      text += kBold;
    }
    text += shown[i];
    if (fixed && (i + 1 == shown.size() || marks[i + 1] == kFree)) {
      text += kNormal;
    }
  }
  return text;
}

void WriteInBold(FileWriter& out, const WordSequence& words, FixedLetters letters) {
  for (size_t i = 0; i < words.numbers.size(); ++i) {
    out.Write(letters.InBold(words.Word(i), words.lexicon->FoldedWord(words.numbers[i])));
    out.Write("\n");
  }
}

}  // namespace quorvane::cli
