// Makes the lexicon that the benchmarks run over: COUNT words (by default 2,000,000, about 25 MB), built of syllables
// with English-like frequencies, sorted, without repeats, CR LF. The same count always gives the same file.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/file.h"

namespace {

// A small generator of its own, so that every standard library makes the same file.
class Generator {
 public:
  uint32_t Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<uint32_t>(state_ >> 32);
  }
  uint32_t Below(uint32_t limit) { return Next() % limit; }

 private:
  uint64_t state_ = 0x9E3779B97F4A7C15u;
};

// Common parts stand more than once.
constexpr std::array<std::string_view, 48> kOnsets = {
    "",   "b",  "c",  "d",  "f",  "g",  "h",   "j",  "k",  "l",  "m",  "n",  "p",  "qu", "r",  "s",
    "t",  "v",  "w",  "y",  "z",  "bl", "br",  "ch", "cl", "cr", "dr", "fl", "fr", "gr", "ph", "pl",
    "pr", "sc", "sh", "sl", "sp", "st", "str", "th", "tr", "s",  "r",  "t",  "l",  "n",  "d",  "c"};
constexpr std::array<std::string_view, 24> kNuclei = {"a",  "e",  "i",  "o", "u",  "e",  "a",  "i",
                                                      "o",  "e",  "i",  "a", "ea", "ou", "ie", "io",
                                                      "ai", "ee", "oo", "y", "e",  "i",  "a",  "u"};
constexpr std::array<std::string_view, 32> kCodas = {"",  "",  "",  "",   "",   "",   "n",  "r",  "s",  "t",  "l",
                                                     "m", "c", "d", "st", "nt", "ll", "ss", "ck", "ng", "rt", "p",
                                                     "b", "g", "x", "nd", "n",  "r",  "s",  "t",  "l",  ""};
constexpr std::array<std::string_view, 20> kEndings = {
    "", "", "", "", "", "", "", "s", "s", "s", "ed", "ing", "er", "ers", "ly", "ness", "able", "ation", "less", "ous"};
constexpr std::array<std::string_view, 12> kBeginnings = {"", "", "", "", "", "", "", "", "", "un", "re", "over"};

template <size_t N>
std::string_view Pick(Generator& generator, const std::array<std::string_view, N>& parts) {
  return parts[generator.Below(static_cast<uint32_t>(N))];
}

std::string MakeWord(Generator& generator) {
  std::string word(Pick(generator, kBeginnings));
  const uint32_t dice = generator.Below(100);
  const int syllables = dice < 20 ? 1 : dice < 75 ? 2 : dice < 95 ? 3 : 4;
  for (int i = 0; i < syllables; ++i) {
    word += Pick(generator, kOnsets);
    word += Pick(generator, kNuclei);
    word += Pick(generator, kCodas);
  }
  return word += Pick(generator, kEndings);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: make_bench_lexicon FILE [COUNT]\n");
    return 2;
  }
  const size_t count = argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 2'000'000;
  Generator generator;
  std::vector<std::string> words;
  while (words.size() < count) {
    for (size_t missing = (count - words.size()) * 5 / 4 + 100; missing > 0; --missing) {
      words.push_back(MakeWord(generator));
    }
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
  }
  // Thinned out evenly to the count asked for.
  std::string text;
  for (size_t i = 0; i < count; ++i) {
    text += words[i * words.size() / count];
    text += "\r\n";
  }
  const auto error = quorvane::ReplaceFile(argv[1], [&text](quorvane::FileWriter& out) { out.Write(text); });
  if (error) {
    std::fprintf(stderr, "make_bench_lexicon: %s\n", error->Text().c_str());
    return 1;
  }
  return 0;
}
