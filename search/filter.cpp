#include "search/filter.h"

#include <bit>

#include "search/byte_masks.h"

namespace quorvane {
namespace {

// Whether one of 64 words passes, for each: the step that the whole filter consists of.
using Filter64 = uint64_t (*)(const uint8_t* lengths, const LetterSet* letters, const WordFilter& filter);

uint64_t FilterEach(const uint8_t* lengths, const LetterSet* letters, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < 64; ++i) {
    mask |= static_cast<uint64_t>(filter.Passes(lengths[i], letters[i])) << i;
  }
  return mask;
}

#ifdef QUORVANE_VECTORS

// A bit for each of 16 words whose length is in the range.
uint32_t LengthsInRange(const uint8_t* lengths, const WordFilter& filter) {
  const __m128i fromShortest = _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(lengths)),
                                            _mm_set1_epi8(static_cast<char>(filter.shortest)));
  const __m128i span = _mm_set1_epi8(static_cast<char>(filter.longest - filter.shortest));
  return static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(fromShortest, span), fromShortest)));
}

// A bit for each of 16 words whose letters fit.
uint32_t LettersFit(const LetterSet* letters, const WordFilter& filter) {
  const __m128i care = _mm_set1_epi32(static_cast<int>(filter.care));
  const __m128i want = _mm_set1_epi32(static_cast<int>(filter.want));
  const auto fits = [&](int k) {
    const __m128i sets = _mm_loadu_si128(reinterpret_cast<const __m128i*>(letters) + k);
    return _mm_cmpeq_epi32(_mm_and_si128(sets, care), want);
  };
  const __m128i low = _mm_packs_epi32(fits(0), fits(1));
  const __m128i high = _mm_packs_epi32(fits(2), fits(3));
  return static_cast<uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

uint64_t FilterLengths(const uint8_t* lengths, const LetterSet*, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < 64; i += 16) {
    mask |= static_cast<uint64_t>(LengthsInRange(lengths + i, filter)) << i;
  }
  return mask;
}

uint64_t FilterLetters(const uint8_t*, const LetterSet* letters, const WordFilter& filter) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < 64; i += 16) {
    mask |= static_cast<uint64_t>(LettersFit(letters + i, filter)) << i;
  }
  return mask;
}

uint64_t FilterBoth(const uint8_t* lengths, const LetterSet* letters, const WordFilter& filter) {
  const uint64_t inRange = FilterLengths(lengths, letters, filter);
  return inRange == 0 ? 0 : inRange & FilterLetters(lengths, letters, filter);
}

Filter64 ChooseFilter(const WordFilter& filter) {
  if (filter.blanks != 0) {
    return FilterEach;
  }
  if (filter.care == 0) {
    return FilterLengths;
  }
  return filter.shortest <= 1 && filter.longest >= kMaxWordLength ? FilterLetters : FilterBoth;
}

#else

Filter64 ChooseFilter(const WordFilter&) {
  return FilterEach;
}

#endif

}  // namespace

void WordFilter::Allow(LetterSet allowed, unsigned blankTiles) {
  blanks = blankTiles;
  if (blanks == 0) {
    care |= kAllLetters & ~allowed;
  } else {
    forbidden = kAllLetters & ~allowed;
  }
}

bool WordFilter::Passes(unsigned length, LetterSet letters) const {
  return length >= shortest && length <= longest && (letters & care) == want &&
         static_cast<unsigned>(std::popcount(letters & forbidden)) <= blanks;
}

void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, size_t count,
                 uint64_t* survivors) {
  const size_t blocks = (count + 63) / 64;
  if (filter.shortest > filter.longest) {
    for (size_t block = 0; block < blocks; ++block) {
      survivors[block] = 0;
    }
    return;
  }
  const Filter64 filter64 = ChooseFilter(filter);
  const uint8_t* lengths = lexicon.Lengths() + first;
  const LetterSet* letters = lexicon.LetterSets() + first;
  for (size_t block = 0; block < blocks; ++block) {
    survivors[block] = filter64(lengths + 64 * block, letters + 64 * block, filter);
  }
  if (count % 64 != 0) {
    survivors[blocks - 1] &= (uint64_t{1} << (count % 64)) - 1;
  }
}

}  // namespace quorvane
