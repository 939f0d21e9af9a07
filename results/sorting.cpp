#include "results/sorting.h"

#include <algorithm>
#include <array>

namespace quorvane {

namespace {

using Counts = std::array<uint32_t, kMaxWordLength + 1>;

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
  const uint8_t* lengths = lexicon.Lengths();
  for (const WordNumber word : words) {
    ++total[lengths[word]];
  }
  return total;
}

}  // namespace

void SortByLength(const Lexicon& lexicon, std::span<const WordNumber> words, bool longestFirst, FoundNumbers& sorted) {
  sorted.Resize(words.size());
  if (words.empty()) {
    return;
  }
  // Of the whole lexicon the lengths are counted already, and the numbers need not be read again.
  const bool whole = IsWholeLexicon(lexicon, words);
  Counts counts;
  if (whole) {
    std::copy(lexicon.lengthCount().begin(), lexicon.lengthCount().end(), counts.begin());
  } else {
    counts = CountLengths(lexicon, words);
  }
  std::array<WordNumber*, kMaxWordLength + 1> next;  // Where the next word of each length belongs.
  WordNumber* place = &sorted[0];
  for (size_t step = 0; step <= kMaxWordLength; ++step) {
    const size_t length = longestFirst ? kMaxWordLength - step : step;
    next[length] = place;
    place += counts[length];
  }
  const uint8_t* lengths = lexicon.Lengths();
  const auto put = [&](WordNumber word) { *next[lengths[word]]++ = word; };
  if (whole) {
    for (WordNumber word = 1; word <= words.size(); ++word) {
      put(word);
    }
  } else {
    std::for_each(words.begin(), words.end(), put);
  }
}

}  // namespace quorvane
