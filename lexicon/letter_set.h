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

// 16 bytes of ones, then 16 of zeros: read from 16 - n on, it keeps n bytes.
alignas(16) inline constexpr std::array<uint8_t, 32> kKeep = [] {
  std::array<uint8_t, 32> keep{};
  for (unsigned i = 0; i < 16; ++i) {
    keep[i] = 0xFF;
  }
  return keep;
}();

// The set of the first `length` (1 to 16) of 16 bytes. Each letter becomes one bit of a byte (its code modulo 8) in one
// of four vectors (its code divided by 8); the four are or-ed together crosswise into 32 bits.
inline LetterSet SetOf16(__m128i text, unsigned length) {
  const __m128i keep = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kKeep.data() + 16 - length));
  const __m128i lower = _mm_or_si128(text, _mm_set1_epi8(0x20));
  const __m128i fromA = _mm_sub_epi8(lower, _mm_set1_epi8('a'));
  const __m128i isLetter = _mm_cmpeq_epi8(_mm_min_epu8(fromA, _mm_set1_epi8(25)), fromA);
  const __m128i bitOf =
      _mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, static_cast<char>(0x80), 1, 2, 4, 8, 16, 32, 64, static_cast<char>(0x80));
  const __m128i bits =
      _mm_and_si128(_mm_shuffle_epi8(bitOf, _mm_and_si128(lower, _mm_set1_epi8(7))), _mm_and_si128(isLetter, keep));
  const __m128i group = _mm_and_si128(lower, _mm_set1_epi8(0x18));
  const __m128i g0 = _mm_and_si128(bits, _mm_cmpeq_epi8(group, _mm_setzero_si128()));
  const __m128i g1 = _mm_and_si128(bits, _mm_cmpeq_epi8(group, _mm_set1_epi8(0x08)));
  const __m128i g2 = _mm_and_si128(bits, _mm_cmpeq_epi8(group, _mm_set1_epi8(0x10)));
  const __m128i g3 = _mm_and_si128(bits, _mm_cmpeq_epi8(group, _mm_set1_epi8(0x18)));
  const __m128i g01 = _mm_or_si128(_mm_unpacklo_epi64(g0, g1), _mm_unpackhi_epi64(g0, g1));
  const __m128i g23 = _mm_or_si128(_mm_unpacklo_epi64(g2, g3), _mm_unpackhi_epi64(g2, g3));
  const __m128 low = _mm_shuffle_ps(_mm_castsi128_ps(g01), _mm_castsi128_ps(g23), 0x88);
  const __m128 high = _mm_shuffle_ps(_mm_castsi128_ps(g01), _mm_castsi128_ps(g23), 0xDD);
  __m128i all = _mm_or_si128(_mm_castps_si128(low), _mm_castps_si128(high));
  all = _mm_or_si128(all, _mm_srli_epi32(all, 16));
  all = _mm_or_si128(all, _mm_srli_epi32(all, 8));
  all = _mm_shuffle_epi8(all, _mm_setr_epi8(0, 4, 8, 12, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1));
  const auto letters = static_cast<LetterSet>(_mm_cvtsi128_si32(all));
  const __m128i others = _mm_andnot_si128(isLetter, keep);
  return letters | (_mm_testz_si128(others, others) != 0 ? 0u : kOtherCharacters);
}

}  // namespace vectors

// The same for a word inside a larger block of text of which at least 16 bytes from the last character on may be read.
inline LetterSet LetterSetInBlock(const char* word, unsigned length) {
  LetterSet set = 0;
  while (length > 16) {
    set |= vectors::SetOf16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(word)), 16);
    word += 16;
    length -= 16;
  }
  return set | vectors::SetOf16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(word)), length);
}

#else

inline LetterSet LetterSetInBlock(const char* word, unsigned length) {
  return LetterSetOf({word, length});
}

#endif

}  // namespace quorvane
