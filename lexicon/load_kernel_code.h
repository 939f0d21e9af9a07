// From a text to the bitmaps of its words' letters, compiled once for each width of vectors by the files that include
// it; only those do. A vector is one, two or four lanes of 16 bytes, each with a word or with what is made of it.
//
// Nothing of the standard library is called here: what the compiler would share with other files might need
// instructions that the machine doesn't have.
#pragma once

#include "lexicon/letter_bitmaps.h"
#include "lexicon/load_kernel.h"

namespace quorvane {
namespace {

constexpr uint32_t kSetBits = kAllLetters | kOtherCharacters;
// Of the last characters the letters' numbers.
static_assert(LetterBitmaps::kEndingLetters == 3 && kLetterNumberBits == 5);
constexpr uint32_t kEndingBits = 0x1F1F1F;

#if defined(__AVX512BW__)

#define QUORVANE_WIDE(operation) _mm512_##operation
using Wide = __m512i;
constexpr size_t kLanes = 4;

// Lane i is read from `at(i)`.
template <class At>
Wide Gather(At at) {
  const Wide one = _mm512_castsi128_si512(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at(0))));
  const Wide two = _mm512_inserti32x4(one, _mm_loadu_si128(reinterpret_cast<const __m128i*>(at(1))), 1);
  const Wide three = _mm512_inserti32x4(two, _mm_loadu_si128(reinterpret_cast<const __m128i*>(at(2))), 2);
  return _mm512_inserti32x4(three, _mm_loadu_si128(reinterpret_cast<const __m128i*>(at(3))), 3);
}

Wide Lane(__m128i lane) {
  return _mm512_broadcast_i32x4(lane);
}

void Store(void* to, Wide wide) {
  _mm512_storeu_si512(to, wide);
}

uint64_t TopBits(Wide bytes) {
  return _mm512_movepi8_mask(bytes);
}

uint64_t Equal(Wide bytes, char c) {
  return _mm512_cmpeq_epi8_mask(bytes, _mm512_set1_epi8(c));
}

// Writes the places of the ones, each plus `base`, 16 at once. Gives their number.
size_t WritePlaces(uint64_t ones, uint32_t base, uint32_t* out) {
  const Wide places =
      _mm512_set_epi8(63, 62, 61, 60, 59, 58, 57, 56, 55, 54, 53, 52, 51, 50, 49, 48, 47, 46, 45, 44, 43, 42, 41, 40,
                      39, 38, 37, 36, 35, 34, 33, 32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16,
                      15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
  const auto count = static_cast<size_t>(_mm_popcnt_u64(ones));
  alignas(64) uint8_t found[64];
  Wide of = _mm512_maskz_compress_epi8(ones, places);
  const auto write = [&](size_t from, __m128i sixteen) {
    _mm512_storeu_si512(out + from,
                        _mm512_add_epi32(_mm512_cvtepu8_epi32(sixteen), _mm512_set1_epi32(static_cast<int>(base))));
  };
  write(0, _mm512_castsi512_si128(of));
  if (count > 16) {
    _mm512_store_si512(found, of);
    for (size_t from = 16; from < count; from += 16) {
      write(from, _mm_load_si128(reinterpret_cast<const __m128i*>(found + from)));
    }
  }
  return count;
}

#elif defined(__AVX2__)

#define QUORVANE_WIDE(operation) _mm256_##operation
using Wide = __m256i;
constexpr size_t kLanes = 2;

template <class At>
Wide Gather(At at) {
  return _mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(at(1)), reinterpret_cast<const __m128i*>(at(0)));
}

Wide Lane(__m128i lane) {
  return _mm256_broadcastsi128_si256(lane);
}

void Store(void* to, Wide wide) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), wide);
}

uint64_t TopBits(Wide bytes) {
  return static_cast<uint32_t>(_mm256_movemask_epi8(bytes));
}

uint64_t Equal(Wide bytes, char c) {
  return TopBits(_mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(c)));
}

#elif defined(QUORVANE_VECTORS)

#define QUORVANE_WIDE(operation) _mm_##operation
using Wide = __m128i;
constexpr size_t kLanes = 1;

template <class At>
Wide Gather(At at) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at(0)));
}

Wide Lane(__m128i lane) {
  return lane;
}

void Store(void* to, Wide wide) {
  _mm_storeu_si128(static_cast<__m128i*>(to), wide);
}

uint64_t TopBits(Wide bytes) {
  return static_cast<uint32_t>(_mm_movemask_epi8(bytes));
}

uint64_t Equal(Wide bytes, char c) {
  return TopBits(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)));
}

#endif

#ifdef QUORVANE_WIDE

#ifndef __AVX512BW__

// Eight at once, whether there are so many or not: a loop of unknown length costs more than the needless ones.
size_t WritePlaces(uint64_t ones, uint32_t base, uint32_t* out) {
  constexpr uint64_t kTopBit = uint64_t{1} << 63;  // Makes counting the zeros below the first one defined for 0.
  const auto count = static_cast<size_t>(__builtin_popcountll(ones));
  do {
    for (int i = 0; i < 8; ++i) {
      *out++ = base + static_cast<uint32_t>(__builtin_ctzll(ones | kTopBit));
      ones &= ones - 1;
    }
  } while (ones != 0);
  return count;
}

#endif

// The bits below the first `count`, all when there are no more.
uint64_t Below(size_t count) {
  return count < 64 ? (uint64_t{1} << count) - 1 : ~uint64_t{0};
}

size_t FindLines(const char* text, size_t from, size_t end, char first, uint32_t* starts, LoadKernel::Facts& facts) {
  const auto bytes = [](char value) { return QUORVANE_WIDE(set1_epi8)(value); };
  const char before = from == 0 ? '\0' : text[from - 1];
  uint64_t feedBefore = before == '\n' ? 1 : 0;
  uint64_t crBefore = before == '\r' ? 1 : 0;
  uint64_t bare = 0;
  uint64_t paired = 0;
  uint64_t otherFirst = 0;
  Wide fold = bytes(0);
  size_t lines = 0;
  for (size_t block = from; block < end; block += LoadKernel::kBlock) {
    uint64_t feeds = 0;
    uint64_t crs = 0;
    uint64_t firsts = 0;
    _mm_prefetch(text + block + LoadKernel::kFetchAhead, _MM_HINT_T0);
    for (size_t i = 0; i < LoadKernel::kBlock; i += 16 * kLanes) {
      const Wide part = Gather([&](size_t lane) { return text + block + i + 16 * lane; });
      feeds |= Equal(part, '\n') << i;
      crs |= Equal(part, '\r') << i;
      firsts |= Equal(part, first) << i;
      // From "A" on 26 codes are upper case: less 25 nothing is left of them. Those from 128 on have the top bit.
      const Wide pastZ = QUORVANE_WIDE(subs_epu8)(QUORVANE_WIDE(sub_epi8)(part, bytes('A')), bytes(25));
      fold = fold | part | QUORVANE_WIDE(sub_epi8)(QUORVANE_WIDE(min_epu8)(pastZ, bytes(1)), bytes(1));
    }
    const uint64_t inside = Below(end - block);
    feeds &= inside;
    const uint64_t afterCr = crs << 1 | crBefore;
    bare |= feeds & ~afterCr;
    paired |= feeds & afterCr;
    otherFirst |= (feeds << 1 | feedBefore) & inside & ~firsts;
    feedBefore = feeds >> 63;
    crBefore = crs >> 63;
    lines += WritePlaces(feeds, static_cast<uint32_t>(block) + 1, starts + lines);
  }
  facts.mayFold = facts.mayFold || TopBits(fold) != 0;
  facts.bareFeed = facts.bareFeed || bare != 0;
  facts.pairedFeed = facts.pairedFeed || paired != 0;
  facts.otherFirst = facts.otherFirst || otherFirst != 0;
  return lines;
}

size_t FindLong(const uint8_t* lengths, size_t count, uint32_t* longWords) {
  size_t found = 0;
  for (size_t block = 0; block < count; block += LoadKernel::kBlock) {
    uint64_t longOnes = 0;
    for (size_t i = 0; i < LoadKernel::kBlock; i += 16 * kLanes) {
      const Wide part = Gather([&](size_t lane) { return lengths + block + i + 16 * lane; });
      // What is left of a long one lifts 127 to the top bit.
      const Wide left = QUORVANE_WIDE(subs_epu8)(part, QUORVANE_WIDE(set1_epi8)(LoadKernel::kHead));
      longOnes |= TopBits(QUORVANE_WIDE(adds_epu8)(left, QUORVANE_WIDE(set1_epi8)(127))) << i;
    }
    longOnes &= Below(count - block);
    found += WritePlaces(longOnes, static_cast<uint32_t>(block), longWords + found);
  }
  return found;
}

// Four numbers a lane that or-ed together are the set of the bytes that are not dropped. A letter's code modulo 32 is
// the bit it sets: the codes 1 to 15 set one of the lower 16 bits, 16 to 26 one of the upper. Each half is looked up by
// the lower four bits of the code, a byte of the set at a time; the lookup gives 0 for indices from 128 on, to which
// everything else is moved.
Wide PartsOfSets(Wide text, Wide drop) {
  const auto bytes = [](char value) { return QUORVANE_WIDE(set1_epi8)(value); };
  const Wide lower = text | bytes(0x20) | drop;
  const Wide aToO = QUORVANE_WIDE(adds_epu8)(lower ^ bytes(0x60), bytes(0x70));
  const Wide pToZ = QUORVANE_WIDE(subs_epi8)(lower, bytes(0x70));
  const __m128i low = _mm_setr_epi8(0, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0);
  const __m128i high = _mm_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 8, 16, 32, 64, -128);
  const __m128i third = _mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0);
  const __m128i fourth = _mm_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 0, 0, 0, 0, 0);
  const Wide fromA = QUORVANE_WIDE(sub_epi8)(lower, bytes('a'));
  const Wide noLetter = QUORVANE_WIDE(min_epu8)(QUORVANE_WIDE(subs_epu8)(fromA, bytes(25)), bytes(kOtherCharacters));
  const Wide byte0 = QUORVANE_WIDE(shuffle_epi8)(Lane(low), aToO) | (noLetter & ~drop);
  const Wide byte1 = QUORVANE_WIDE(shuffle_epi8)(Lane(high), aToO);
  const Wide byte2 = QUORVANE_WIDE(shuffle_epi8)(Lane(third), pToZ);
  const Wide byte3 = QUORVANE_WIDE(shuffle_epi8)(Lane(fourth), pToZ);
  const Wide lowHalf = QUORVANE_WIDE(unpacklo_epi8)(byte0, byte1) | QUORVANE_WIDE(unpackhi_epi8)(byte0, byte1);
  const Wide highHalf = QUORVANE_WIDE(unpacklo_epi8)(byte2, byte3) | QUORVANE_WIDE(unpackhi_epi8)(byte2, byte3);
  return QUORVANE_WIDE(unpacklo_epi16)(lowHalf, highHalf) | QUORVANE_WIDE(unpackhi_epi16)(lowHalf, highHalf);
}

// Of four vectors the parts in each lane, or-ed together, become four numbers.
Wide Join(const Wide (&of)[4]) {
  const Wide ab = QUORVANE_WIDE(unpacklo_epi32)(of[0], of[1]) | QUORVANE_WIDE(unpackhi_epi32)(of[0], of[1]);
  const Wide cd = QUORVANE_WIDE(unpacklo_epi32)(of[2], of[3]) | QUORVANE_WIDE(unpackhi_epi32)(of[2], of[3]);
  return QUORVANE_WIDE(unpacklo_epi64)(ab, cd) | QUORVANE_WIDE(unpackhi_epi64)(ab, cd);
}

void CollectHeads(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count, LetterSet* sets,
                  uint32_t* lastCharacters) {
  alignas(64) static constexpr uint8_t kPlaces[16] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
  alignas(64) static constexpr uint8_t kWords[4][16] = {
      {0},
      {4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4},
      {8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8},
      {12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12}};
  const auto bytes = [](char value) { return QUORVANE_WIDE(set1_epi8)(value); };
  const Wide places = Lane(_mm_load_si128(reinterpret_cast<const __m128i*>(kPlaces)));
  const Wide firstWords = Gather([](size_t lane) { return kWords[lane]; });
  // Added to the length they are the places of the last characters. One in front of the word has the top bit, and one
  // behind the head has it when it is lifted, which leaves alone the four bits that are looked up: nothing is found
  // there.
  const char no = -128;
  const Wide fromLength = Lane(_mm_setr_epi8(-1, -2, -3, no, no, no, no, no, no, no, no, no, no, no, no, no));
  const Wide lifted = QUORVANE_WIDE(add_epi8)(fromLength, bytes(0x70));
  for (size_t i = 0; i < count; i += 4 * kLanes) {
    const Wide all = Lane(_mm_loadu_si128(reinterpret_cast<const __m128i*>(lengths + i)));
    Wide partsOfSets[4];
    Wide lasts[4];
    // Lane by lane the words `k`, `k + 4` and so on.
    for (size_t k = 0; k < 4; ++k) {
      const Wide heads = Gather([&](size_t lane) { return text + starts[i + k + 4 * lane]; });
      const Wide words = QUORVANE_WIDE(add_epi8)(firstWords, bytes(static_cast<char>(k)));
      const Wide length = QUORVANE_WIDE(shuffle_epi8)(all, words);
      // All ones where nothing is left of the length.
      const Wide left = QUORVANE_WIDE(min_epu8)(QUORVANE_WIDE(subs_epu8)(length, places), bytes(1));
      partsOfSets[k] = PartsOfSets(heads, QUORVANE_WIDE(sub_epi8)(left, bytes(1)));
      const Wide last = QUORVANE_WIDE(add_epi8)(length, fromLength) | QUORVANE_WIDE(adds_epu8)(length, lifted);
      lasts[k] = QUORVANE_WIDE(shuffle_epi8)(heads, last);
    }
    Store(sets + i, Join(partsOfSets));
    Store(lastCharacters + i, Join(lasts));
  }
}

template <uint32_t Bits>
void BitmapsOf64(const uint32_t* numbers, uint64_t* rows, size_t stride) {
  constexpr size_t kVectors = 4 / kLanes;  // That hold a byte of each of 64 numbers.
  const Wide together = Lane(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
  Wide planes[4][kVectors];  // By byte of the number.
  for (size_t i = 0; i < kVectors; ++i) {
    const auto four = [&](size_t from) {
      const uint32_t* first = numbers + 16 * kLanes * i + from;
      return QUORVANE_WIDE(shuffle_epi8)(Gather([&](size_t lane) { return first + 16 * lane; }), together);
    };
    const Wide low01 = QUORVANE_WIDE(unpacklo_epi32)(four(0), four(4));
    const Wide high01 = QUORVANE_WIDE(unpackhi_epi32)(four(0), four(4));
    const Wide low23 = QUORVANE_WIDE(unpacklo_epi32)(four(8), four(12));
    const Wide high23 = QUORVANE_WIDE(unpackhi_epi32)(four(8), four(12));
    planes[0][i] = QUORVANE_WIDE(unpacklo_epi64)(low01, low23);
    planes[1][i] = QUORVANE_WIDE(unpackhi_epi64)(low01, low23);
    planes[2][i] = QUORVANE_WIDE(unpacklo_epi64)(high01, high23);
    planes[3][i] = QUORVANE_WIDE(unpackhi_epi64)(high01, high23);
  }
  uint64_t* row = rows + __builtin_popcount(Bits) * stride;
  for (size_t byte = 4; byte-- > 0;) {
    for (size_t bit = 8; bit-- > 0;) {
      uint64_t ones = 0;
      for (size_t i = 0; i < kVectors; ++i) {
        ones |= TopBits(planes[byte][i]) << (16 * kLanes * i);
        planes[byte][i] = QUORVANE_WIDE(add_epi8)(planes[byte][i], planes[byte][i]);
      }
      if ((Bits >> (8 * byte + bit) & 1u) != 0) {
        row -= stride;
        *row = ones;
      }
    }
  }
}

#else

size_t FindLines(const char* text, size_t from, size_t end, char first, uint32_t* starts, LoadKernel::Facts& facts) {
  size_t lines = 0;
  for (size_t i = from; i < end; ++i) {
    const char before = i == 0 ? '\0' : text[i - 1];
    facts.mayFold = facts.mayFold || Fold(text[i]) != text[i];
    facts.otherFirst = facts.otherFirst || (before == '\n' && text[i] != first);
    if (text[i] == '\n') {
      starts[lines++] = static_cast<uint32_t>(i + 1);
      (before == '\r' ? facts.pairedFeed : facts.bareFeed) = true;
    }
  }
  return lines;
}

size_t FindLong(const uint8_t* lengths, size_t count, uint32_t* longWords) {
  size_t found = 0;
  for (size_t i = 0; i < count; ++i) {
    longWords[found] = static_cast<uint32_t>(i);
    found += lengths[i] > LoadKernel::kHead ? 1u : 0u;
  }
  return found;
}

void CollectHeads(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count, LetterSet* sets,
                  uint32_t* lastCharacters) {
  for (size_t i = 0; i < count; ++i) {
    sets[i] = 0;
    lastCharacters[i] = 0;
    for (size_t k = 0; k < lengths[i] && k < LoadKernel::kHead; ++k) {
      const char c = text[starts[i] + k];
      const size_t fromEnd = lengths[i] - 1 - k;
      sets[i] |= LetterBit(c);
      lastCharacters[i] |=
          fromEnd < LetterBitmaps::kEndingLetters ? static_cast<uint32_t>(static_cast<uint8_t>(c)) << (8 * fromEnd) : 0;
    }
  }
}

template <uint32_t Bits>
void BitmapsOf64(const uint32_t* numbers, uint64_t* rows, size_t stride) {
  for (uint32_t bits = Bits; bits != 0; bits &= bits - 1) {
    *rows = 0;
    for (size_t i = 0; i < 64; ++i) {
      *rows |= static_cast<uint64_t>(numbers[i] >> __builtin_ctz(bits) & 1) << i;
    }
    rows += stride;
  }
}

#endif

uint32_t Measure(const uint32_t* __restrict starts, size_t count, uint32_t lineEnd, uint8_t* __restrict lengths) {
  uint32_t greatest = 0;
  for (size_t i = 0; i < count; ++i) {
    const uint32_t length = starts[i + 1] - starts[i] - lineEnd;
    greatest = length - 1 > greatest ? length - 1 : greatest;
    lengths[i] = static_cast<uint8_t>(length);
  }
  return greatest;
}

}  // namespace
}  // namespace quorvane
