#include "search/filter.h"

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

void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, size_t count,
                 Survivors& survivors) {
  survivors.Clear();
  if (filter.shortest > filter.longest) {
    return;
  }
  const uint8_t* lengths = lexicon.Lengths() + first;
  const LetterSet* letters = lexicon.LetterSets() + first;
  const size_t whole = count / kBlockWords;
  const uint64_t rest = (uint64_t{1} << count % kBlockWords) - 1;
  const size_t blocks = whole + (rest != 0 ? 1 : 0);
  const auto inChunk = [&](size_t block) { return block < whole ? ~uint64_t{0} : rest; };
  const auto fit = [&](size_t block) { return LettersFit(letters + kBlockWords * block, filter); };
  if (filter.care != 0 && filter.shortest <= 1 && filter.longest >= kMaxWordLength) {
    survivors.Fill(blocks, [&](size_t block) { return fit(block) & inChunk(block); });
  } else {
    survivors.Fill(blocks,
                   [&](size_t block) { return LengthsFit(lengths + kBlockWords * block, filter) & inChunk(block); });
    if (filter.care != 0) {
      survivors.Narrow([&](size_t block, uint64_t bits) { return bits & fit(block); });
    }
  }
  if (filter.blanks != 0) {
    survivors.Narrow(
        [&](size_t block, uint64_t bits) { return bits & BlanksSuffice(letters + kBlockWords * block, filter); });
  }
}

}  // namespace quorvane
