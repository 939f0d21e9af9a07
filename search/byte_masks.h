// Questions to 16, 32 or 64 characters at once. Each answer is a number whose bit i speaks of character i.
//
// With vector instructions (x86-64-v2) an answer takes a few of them per 16 characters; without, a loop. All functions
// read 16 * Vectors bytes; bits past a word's end are whatever stands there.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "lexicon/letter_set.h"

namespace quorvane {

// A set of lower-case letters in the form the questions need: per low half of a character's code, whether the set holds
// "a" to "o" (codes 0x61 to 0x6F) and "p" to "z" (codes 0x70 to 0x7A). It speaks of letters only.
struct LetterClass {
  alignas(16) std::array<uint8_t, 16> aToO{};
  alignas(16) std::array<uint8_t, 16> pToZ{};
  LetterSet letters = 0;

  LetterClass() = default;
  explicit LetterClass(LetterSet set) : letters(set) {
    for (unsigned bit = 1; bit <= 26; ++bit) {
      if ((set >> bit & 1u) != 0) {
        (bit < 16 ? aToO : pToZ)[bit & 15u] = 0x80;
      }
    }
  }
};

// A run of up to 16 characters, each repeated as often as it is compared at once.
struct ByteRun {
  static constexpr size_t kMost = 16;
  alignas(16) std::array<std::array<char, 16>, kMost> repeated{};
  size_t size = 0;

  void Add(char c) { repeated[size++].fill(c); }
};

#ifdef QUORVANE_VECTORS

inline constexpr std::ptrdiff_t kStride = 16;  // Characters of a vector.

inline __m128i LoadBytes(const char* text) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

inline uint64_t MaskOf(__m128i bytes) {
  return static_cast<uint32_t>(_mm_movemask_epi8(bytes));
}

// Which characters are `c`.
template <int Vectors>
uint64_t EqualMask(const char* text, char c) {
  const __m128i wanted = _mm_set1_epi8(c);
  uint64_t mask = 0;
  for (int v = 0; v < Vectors; ++v) {
    mask |= MaskOf(_mm_cmpeq_epi8(LoadBytes(text + kStride * v), wanted)) << (16 * v);
  }
  return mask;
}

// Which letters are in the class.
template <int Vectors>
uint64_t ClassMask(const char* text, const LetterClass& letters) {
  const __m128i aToO = _mm_load_si128(reinterpret_cast<const __m128i*>(letters.aToO.data()));
  const __m128i pToZ = _mm_load_si128(reinterpret_cast<const __m128i*>(letters.pToZ.data()));
  uint64_t mask = 0;
  for (int v = 0; v < Vectors; ++v) {
    const __m128i bytes = LoadBytes(text + kStride * v);
    // Bit 4 of the code tells the two halves of the alphabet apart; shifted, it is the bit that the blend looks at.
    const __m128i half = _mm_slli_epi16(bytes, 3);
    const __m128i found = _mm_blendv_epi8(_mm_shuffle_epi8(aToO, bytes), _mm_shuffle_epi8(pToZ, bytes), half);
    mask |= MaskOf(found) << (16 * v);
  }
  return mask;
}

// Which characters equal those of the other text at the same place.
template <int Vectors>
uint64_t SameMask(const char* text, const char* other) {
  uint64_t mask = 0;
  for (int v = 0; v < Vectors; ++v) {
    mask |= MaskOf(_mm_cmpeq_epi8(LoadBytes(text + kStride * v), LoadBytes(other + kStride * v))) << (16 * v);
  }
  return mask;
}

// Where the run starts.
template <int Vectors>
uint64_t RunMask(const char* text, const ByteRun& run) {
  uint64_t mask = 0;
  for (int v = 0; v < Vectors; ++v) {
    __m128i starts = _mm_set1_epi8(-1);
    for (size_t i = 0; i < run.size; ++i) {
      const __m128i wanted = _mm_load_si128(reinterpret_cast<const __m128i*>(run.repeated[i].data()));
      starts = _mm_and_si128(starts, _mm_cmpeq_epi8(LoadBytes(text + kStride * v + i), wanted));
    }
    mask |= MaskOf(starts) << (16 * v);
  }
  return mask;
}

#else

template <int Vectors, class Question>
uint64_t AskEach(Question question) {
  uint64_t mask = 0;
  for (unsigned i = 0; i < 16u * Vectors; ++i) {
    mask |= static_cast<uint64_t>(question(i)) << i;
  }
  return mask;
}

template <int Vectors>
uint64_t EqualMask(const char* text, char c) {
  return AskEach<Vectors>([&](unsigned i) { return text[i] == c; });
}

template <int Vectors>
uint64_t ClassMask(const char* text, const LetterClass& letters) {
  return AskEach<Vectors>([&](unsigned i) { return IsLetter(text[i]) && (letters.letters & LetterBit(text[i])) != 0; });
}

template <int Vectors>
uint64_t SameMask(const char* text, const char* other) {
  return AskEach<Vectors>([&](unsigned i) { return text[i] == other[i]; });
}

template <int Vectors>
uint64_t RunMask(const char* text, const ByteRun& run) {
  return AskEach<Vectors>([&](unsigned i) {
    size_t same = 0;
    while (same < run.size && text[i + same] == run.repeated[same][0]) {
      ++same;
    }
    return same == run.size;
  });
}

#endif

}  // namespace quorvane
