// The loader over any bytes: what it makes of a file against the lines that stand in it.
#include <algorithm>
#include <array>
#include <sstream>
#include <vector>

#include "base/text.h"
#include "lexicon/lexicon.h"
#include "tests/fuzz/fuzz.h"

namespace quorvane::fuzz {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream file(text);
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    lines.push_back(line);
  }
  return lines;
}

bool Fits(const std::string& line) {
  return !line.empty() && line.size() <= 90 && Upper(line[0]) >= 'A' && Upper(line[0]) <= '_';
}

void Compare(const std::vector<std::string>& lines, size_t capacity, const LoadResult& loaded) {
  size_t good = 0;  // Lines in front of the first that stops the load.
  int runs = 0;
  for (; good < std::min(lines.size(), capacity) && Fits(lines[good]); ++good) {
    runs += good == 0 || Fold(lines[good][0]) != Fold(lines[good - 1][0]) ? 1 : 0;
  }
  const bool full = good == capacity && lines.size() > capacity;
  const bool whole = good == lines.size() && good > 0;
  Demand(loaded.Usable() == ((whole || full) && runs <= 26), "usable as its lines are");
  Demand(!loaded.Usable() || (loaded.outcome == LoadOutcome::Ok) == whole, "full beyond the capacity alone");
  if (!loaded.Usable()) {
    return;
  }
  const Lexicon& lexicon = *loaded.lexicon;
  Demand(static_cast<size_t>(lexicon.count()) == good, "a word a line");
  Lexicon::LengthCount lengths{};
  std::array<int32_t, 256> lastBefore{};  // The last word in front of each initial's block.
  for (size_t i = 0; i < good; ++i) {
    const auto number = static_cast<WordNumber>(i + 1);
    Demand(lexicon.Word(number) == lines[i], "the word is the line");
    Demand(lexicon.FoldedWord(number) == FoldText(lines[i]), "the folded word");
    Demand(lexicon.Bitmaps().Letters(number) == LetterSetOf(lines[i]), "the letters of the word");
    uint32_t ending = 0;
    uint32_t others = 0;  // Where no letter stands in it.
    for (const char c : lines[i]) {
      const bool letter = IsLetter(c);
      ending = (ending << kLetterNumberBits | (letter ? LetterNumber(c) : 0)) % (1u << LetterBitmaps::kEndingRows);
      others = (others << kLetterNumberBits | (letter ? 0 : 31u)) % (1u << LetterBitmaps::kEndingRows);
    }
    Demand((lexicon.Bitmaps().Ending(number) & ~others) == ending, "the letters at the word's end");
    ++lengths[lines[i].size()];
    if (i == 0 || Fold(lines[i][0]) != Fold(lines[i - 1][0])) {
      lastBefore[static_cast<unsigned char>(Upper(lines[i][0]))] = static_cast<int32_t>(i);
    }
  }
  if (!full) {
    Demand(lexicon.lengthCount() == lengths, "the counts of the lengths");
  }
  for (size_t code = 'B'; code <= 'Z' && whole; ++code) {
    Demand(lastBefore[code] == 0 || lexicon.letterStart()[code - 'A'] == lastBefore[code], "where an initial begins");
  }
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace quorvane;
  FuzzedDataProvider data(bytes, size);
  const TextSource source = data.ConsumeBool() ? TextSource::Map : TextSource::Read;
  const int32_t capacity = data.ConsumeBool() ? kLexiconCapacity : data.ConsumeIntegralInRange<int32_t>(1, 40);
  const bool words = data.ConsumeBool();
  const std::string text =
      words ? fuzz::TextOf(data, "aAbBzZ\xE9\xC9'[_\r\n\n\n", 4000) : data.ConsumeRemainingBytesAsString();
  const fuzz::MemoryFile file(text);
  fuzz::Compare(fuzz::LinesOf(text), static_cast<size_t>(capacity), LoadLexicon(file.Path(), capacity, source));
  return 0;
}
