// The set of a word's letters in 32 bits, the filter of every search.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "base/text.h"

#if defined(__SSE4_2__) && !defined(QUORVANE_PLAIN)
#include <immintrin.h>
#define QUORVANE_VECTORS 1
#endif

namespace quorvane {

// Bit 1 stands for "a" or "A", bit 26 for "z" or "Z"; bit 0 says that something else occurs: such a word is decided by
// its own characters, never by its set alone.
using LetterSet = uint32_t;

inline constexpr LetterSet kOtherCharacters = 1u;
inline constexpr LetterSet kAllLetters = 0x07FFFFFEu;

constexpr LetterSet LetterBit(char c) {
  return IsLetter(c) ? 1u << (static_cast<unsigned char>(c) & 31u) : kOtherCharacters;
}

constexpr LetterSet LetterSetOf(std::string_view text) {
  LetterSet set = 0;
  for (const char c : text) {
    set |= LetterBit(c);
  }
  return set;
}

#ifdef QUORVANE_VECTORS

namespace vectors {

// 16 bytes of zeros, then 16 of ones: read from 16 - n on, it drops all but n bytes.
alignas(16) inline constexpr std::array<uint8_t, 32> kDrop = [] {
  std::array<uint8_t, 32> drop{};
  for (unsigned i = 16; i < 32; ++i) {
    drop[i] = 0xFF;
  }
  return drop;
}();

// Four numbers that or-ed together are the set of the first `length` (0 to 16) of 16 bytes. A letter's code modulo 32
// is the bit it sets: the codes 1 to 15 set one of the lower 16 bits, 16 to 26 one of the upper. Each half is looked up
// by the lower four bits of the code, a byte of the set at a time; the lookup gives 0 for indices from 128 on, to which
// everything else is moved.
inline __m128i PartsOfSet(__m128i text, unsigned length) {
  const __m128i drop = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kDrop.data() + 16 - length));
  const __m128i lower = _mm_or_si128(_mm_or_si128(text, _mm_set1_epi8(0x20)), drop);
  const __m128i aToO = _mm_adds_epu8(_mm_xor_si128(lower, _mm_set1_epi8(0x60)), _mm_set1_epi8(0x70));
  const __m128i pToZ = _mm_subs_epi8(lower, _mm_set1_epi8(0x70));
  const __m128i byte0 = _mm_shuffle_epi8(_mm_setr_epi8(0, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0), aToO);
  const __m128i byte1 = _mm_shuffle_epi8(_mm_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 8, 16, 32, 64, -128), aToO);
  const __m128i byte2 = _mm_shuffle_epi8(_mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0), pToZ);
  const __m128i byte3 = _mm_shuffle_epi8(_mm_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 4, 0, 0, 0, 0, 0), pToZ);
  const __m128i fromA = _mm_sub_epi8(lower, _mm_set1_epi8('a'));
  const __m128i noLetter = _mm_cmpeq_epi8(_mm_max_epu8(fromA, _mm_set1_epi8(26)), fromA);
  const __m128i other = _mm_and_si128(_mm_andnot_si128(drop, noLetter), _mm_set1_epi8(kOtherCharacters));
  const __m128i low = _mm_or_si128(byte0, other);
  const __m128i halves01 = _mm_or_si128(_mm_unpacklo_epi8(low, byte1), _mm_unpackhi_epi8(low, byte1));
  const __m128i halves23 = _mm_or_si128(_mm_unpacklo_epi8(byte2, byte3), _mm_unpackhi_epi8(byte2, byte3));
  return _mm_or_si128(_mm_unpacklo_epi16(halves01, halves23), _mm_unpackhi_epi16(halves01, halves23));
}

inline __m128i PartsOfSet(const char* text, unsigned length) {
  return PartsOfSet(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text)), length);
}

inline LetterSet Join(__m128i parts) {
  parts = _mm_or_si128(parts, _mm_shuffle_epi32(parts, 0x4E));
  return static_cast<LetterSet>(_mm_cvtsi128_si32(_mm_or_si128(parts, _mm_shuffle_epi32(parts, 0xB1))));
}

// Four at once: the parts of each become one of four numbers.
inline __m128i Join(__m128i a, __m128i b, __m128i c, __m128i d) {
  const __m128i ab = _mm_or_si128(_mm_unpacklo_epi32(a, b), _mm_unpackhi_epi32(a, b));
  const __m128i cd = _mm_or_si128(_mm_unpacklo_epi32(c, d), _mm_unpackhi_epi32(c, d));
  return _mm_or_si128(_mm_unpacklo_epi64(ab, cd), _mm_unpackhi_epi64(ab, cd));
}

}  // namespace vectors

#endif

// Characters of a word whose letters are collected at once.
inline constexpr unsigned kLettersAtOnce = 16;

// The set of a word of up to 16 characters inside a larger block of text, of which 16 bytes from its start on may be
// read.
inline LetterSet LetterSetOfHead(const char* word, unsigned length) {
#ifdef QUORVANE_VECTORS
  return vectors::Join(vectors::PartsOfSet(word, length));
#else
  return LetterSetOf({word, length});
#endif
}

// The same for four words.
inline void LetterSetsOfHeads(const std::array<const char*, 4>& words, const std::array<unsigned, 4>& lengths,
                              LetterSet* sets) {
#ifdef QUORVANE_VECTORS
  using vectors::PartsOfSet;
  _mm_storeu_si128(reinterpret_cast<__m128i*>(sets),
                   vectors::Join(PartsOfSet(words[0], lengths[0]), PartsOfSet(words[1], lengths[1]),
                                 PartsOfSet(words[2], lengths[2]), PartsOfSet(words[3], lengths[3])));
#else
  for (size_t i = 0; i < 4; ++i) {
    sets[i] = LetterSetOfHead(words[i], lengths[i]);
  }
#endif
}

}  // namespace quorvane
