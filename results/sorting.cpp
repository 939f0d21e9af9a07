#include "results/sorting.h"

#include <algorithm>
#include <array>

namespace quorvane {

namespace {

using Counts = std::array<uint32_t, kMaxWordLength + 1>;

// Words placed in one go: first each one's place is worked out, then all are put there. Kept apart, the second pass
// waits for no counter.
constexpr size_t kBatch = 2048;

// Whether the words are 1 to their number, the whole lexicon in its order.
bool IsWholeLexicon(const Lexicon& lexicon, std::span<const WordNumber> words) {
  if (words.size() != static_cast<size_t>(lexicon.count())) {
    return false;
  }
  WordNumber different = 0;
  for (size_t i = 0; i < words.size(); ++i) {
    different |= words[i] ^ static_cast<WordNumber>(i + 1);
  }
  return different == 0;
}

Counts CountLengths(const Lexicon& lexicon, std::span<const WordNumber> words) {
  Counts total{};
  if (IsWholeLexicon(lexicon, words)) {  // Its lengths are counted already.
    std::copy(lexicon.lengthCount().begin(), lexicon.lengthCount().end(), total.begin());
    return total;
  }
  const uint8_t* lengths = lexicon.Lengths();
  for (const WordNumber word : words) {
    ++total[lengths[word]];
  }
  return total;
}

}  // namespace

void SortByLength(const Lexicon& lexicon, std::span<const WordNumber> words, bool longestFirst, FoundNumbers& sorted) {
  const uint8_t* lengths = lexicon.Lengths();
  const Counts counts = CountLengths(lexicon, words);
  Counts next{};
  uint32_t total = 0;
  for (size_t step = 0; step <= kMaxWordLength; ++step) {
    const size_t length = longestFirst ? kMaxWordLength - step : step;
    next[length] = total;
    total += counts[length];
  }
  sorted.Resize(words.size());
  if (words.empty()) {
    return;
  }
  WordNumber* out = &sorted[0];
  std::array<uint32_t, kBatch> places;
  for (size_t first = 0; first < words.size(); first += kBatch) {
    const std::span<const WordNumber> batch = words.subspan(first, std::min(kBatch, words.size() - first));
    for (size_t i = 0; i < batch.size(); ++i) {
      places[i] = next[lengths[batch[i]]]++;
    }
    for (size_t i = 0; i < batch.size(); ++i) {
      out[places[i]] = batch[i];
    }
  }
}

}  // namespace quorvane
