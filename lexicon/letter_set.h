// The set of a word's letters in 32 bits, the filter of every search.
#pragma once

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

inline constexpr unsigned kLetterNumberBits = 5;

// 1 for "a" or "A" to 26 for "z" or "Z"; that of another character means nothing.
constexpr uint32_t LetterNumber(char letter) {
  return static_cast<unsigned char>(letter) & 31u;
}

constexpr LetterSet LetterSetOf(std::string_view text) {
  LetterSet set = 0;
  for (const char c : text) {
    set |= LetterBit(c);
  }
  return set;
}

}  // namespace quorvane
