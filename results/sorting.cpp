#include "results/sorting.h"

#include <array>

namespace quorvane {

void SortByLength(const Lexicon& lexicon, std::span<const WordNumber> words, bool longestFirst, FoundNumbers& sorted) {
  const uint8_t* lengths = lexicon.Lengths();
  // Four counters a length: neighbouring words of one length do not wait for each other.
  std::array<std::array<uint32_t, 256>, 4> counts{};
  size_t i = 0;
  for (; i + 4 <= words.size(); i += 4) {
    for (size_t k = 0; k < 4; ++k) {
      ++counts[k][lengths[words[i + k]]];
    }
  }
  for (; i < words.size(); ++i) {
    ++counts[0][lengths[words[i]]];
  }
  std::array<uint32_t, 256> next{};
  uint32_t total = 0;
  for (size_t step = 0; step <= kMaxWordLength; ++step) {
    const size_t length = longestFirst ? kMaxWordLength - step : step;
    next[length] = total;
    total += counts[0][length] + counts[1][length] + counts[2][length] + counts[3][length];
  }
  sorted.Resize(words.size());
  if (words.empty()) {
    return;
  }
  WordNumber* out = &sorted[0];
  for (const WordNumber word : words) {
    out[next[lengths[word]]++] = word;
  }
}

}  // namespace quorvane
