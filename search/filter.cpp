#include "search/filter.h"

#include <algorithm>
#include <bit>

#include "search/byte_masks.h"

namespace quorvane {
namespace {

constexpr size_t kBlockWords = 64;

// The questions that the filter consists of, each to 64 words: a bit for each that passes.

#ifdef QUORVANE_VECTORS

uint64_t LengthsFit(const uint8_t* lengths, const WordFilter& filter) {
  const __m128i shortest = _mm_set1_epi8(static_cast<char>(filter.shortest));
  const __m128i span = _mm_set1_epi8(static_cast<char>(filter.longest - filter.shortest));
  uint64_t mask = 0;
  for (unsigned i = 0; i < kBlockWords; i += 16) {
    const __m128i fromShortest = _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(lengths + i)), shortest);
    mask |= MaskOf(_mm_cmpeq_epi8(_mm_min_epu8(fromShortest, span), fromShortest)) << i;
  }
  return mask;
}

uint64_t LettersFit(const LetterSet* letters, const WordFilter& filter) {
  const __m128i care = _mm_set1_epi32(static_cast<int>(filter.care));
  const __m128i want = _mm_set1_epi32(static_cast<int>(filter.want));
  const auto fits = [&](const LetterSet* four) {
    const __m128i sets = _mm_loadu_si128(reinterpret_cast<const __m128i*>(four));
    return _mm_cmpeq_epi32(_mm_and_si128(sets, care), want);
  };
  uint64_t mask = 0;
  for (unsigned i = 0; i < kBlockWords; i += 16) {
    const __m128i low = _mm_packs_epi32(fits(letters + i), fits(letters + i + 4));
    const __m128i high = _mm_packs_epi32(fits(letters + i + 8), fits(letters + i + 12));
    mask |= MaskOf(_mm_packs_epi16(low, high)) << i;
  }
  return mask;
}

#else

uint64_t LengthsFit(const uint8_t* lengths, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < kBlockWords; ++i) {
    mask |= static_cast<uint64_t>(lengths[i] >= filter.shortest && lengths[i] <= filter.longest) << i;
  }
  return mask;
}

uint64_t LettersFit(const LetterSet* letters, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < kBlockWords; ++i) {
    mask |= static_cast<uint64_t>((letters[i] & filter.care) == filter.want) << i;
  }
  return mask;
}

#endif

uint64_t BlanksSuffice(const LetterSet* letters, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < kBlockWords; ++i) {
    mask |= static_cast<uint64_t>(static_cast<unsigned>(std::popcount(letters[i] & filter.forbidden)) <= filter.blanks)
            << i;
  }
  return mask;
}

}  // namespace

void WordFilter::Allow(LetterSet allowed, unsigned blankTiles) {
  blanks = blankTiles;
  if (blanks == 0) {
    care |= kAllLetters & ~allowed;
  } else {
    forbidden = kAllLetters & ~allowed;
  }
}

void WordFilter::Narrow(const WordFilter& other) {
  shortest = std::max(shortest, other.shortest);
  longest = std::min(longest, other.longest);
  if ((care & other.care & (want ^ other.want)) != 0) {
    shortest = 1;
    longest = 0;
  }
  care |= other.care;
  want |= other.want;
}

namespace {

// The questions of one filter to the blocks of a chunk.
struct Questions {
  const WordFilter& filter;
  const uint8_t* lengths;
  const LetterSet* letters;

  Questions(const Lexicon& lexicon, const WordFilter& asked, WordNumber first)
      : filter(asked), lengths(lexicon.Lengths() + first), letters(lexicon.LetterSets() + first) {}

  bool Impossible() const { return filter.shortest > filter.longest; }
  bool AskLength() const { return filter.shortest > 1 || filter.longest < kMaxWordLength; }
  uint64_t Length(size_t block) const { return LengthsFit(lengths + kBlockWords * block, filter); }
  uint64_t Letters(size_t block) const { return LettersFit(letters + kBlockWords * block, filter); }

  void NarrowByLetters(Survivors& survivors) const {
    if (filter.care != 0) {
      survivors.Narrow([this](size_t block, uint64_t bits) { return bits & Letters(block); });
    }
  }
  void NarrowByBlanks(Survivors& survivors) const {
    if (filter.blanks != 0) {
      survivors.Narrow(
          [this](size_t block, uint64_t bits) { return bits & BlanksSuffice(letters + kBlockWords * block, filter); });
    }
  }
};

}  // namespace

void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, size_t count,
                 Survivors& survivors) {
  survivors.Clear();
  const Questions ask(lexicon, filter, first);
  if (ask.Impossible()) {
    return;
  }
  const size_t whole = count / kBlockWords;
  const uint64_t rest = (uint64_t{1} << count % kBlockWords) - 1;
  const size_t blocks = whole + (rest != 0 ? 1 : 0);
  const auto inChunk = [&](size_t block) { return block < whole ? ~uint64_t{0} : rest; };
  if (filter.care != 0 && !ask.AskLength()) {
    survivors.Fill(blocks, [&](size_t block) { return ask.Letters(block) & inChunk(block); });
  } else {
    survivors.Fill(blocks, [&](size_t block) { return ask.Length(block) & inChunk(block); });
    ask.NarrowByLetters(survivors);
  }
  ask.NarrowByBlanks(survivors);
}

void NarrowWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, Survivors& survivors) {
  const Questions ask(lexicon, filter, first);
  if (ask.Impossible() || ask.AskLength()) {
    const uint64_t possible = ask.Impossible() ? 0 : ~uint64_t{0};
    survivors.Narrow([&](size_t block, uint64_t bits) { return bits & ask.Length(block) & possible; });
  }
  ask.NarrowByLetters(survivors);
  ask.NarrowByBlanks(survivors);
}

}  // namespace quorvane
