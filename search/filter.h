// The first of a scan's three steps: filter. For 64 words at a time it makes one machine word with a bit for each word
// that may still match, from lengths and letter sets alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "lexicon/lexicon.h"

namespace quorvane {

// What a word must fulfil to be looked at: `shortest` <= length <= `longest`, and of the letters in `care` exactly
// those in `want`. With `blanks` above 0 as many letters of `forbidden` may occur as there are blanks.
struct WordFilter {
  unsigned shortest = 0;
  unsigned longest = kMaxWordLength;
  LetterSet care = 0;
  LetterSet want = 0;
  LetterSet forbidden = 0;  // Only with blanks; without them forbidden letters stand in `care` and not in `want`.
  unsigned blanks = 0;

  void Require(LetterSet letters) {
    care |= letters;
    want |= letters;
  }
  // No letter but these (in words that hold letters only; a word with other characters is judged by itself).
  void Allow(LetterSet letters, unsigned blankTiles = 0);
  bool Passes(unsigned length, LetterSet letters) const;
};

// Fills `survivors`, one bit a word, for the words `first` to `first + count - 1`; (count + 63) / 64 machine words are
// written, the bits past `count` are 0.
void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, size_t count, uint64_t* survivors);

}  // namespace quorvane
