// Which words hold a letter, and with which they end: a bitmap for each letter and for each bit of the numbers of the
// last letters. A search reads those that it asks for alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/big_buffer.h"
#include "lexicon/letter_set.h"

namespace quorvane {

class LetterBitmaps {
 public:
  // The first rows are the bits of a letter set: row 0 other characters, then "a" to "z".
  static constexpr size_t kSetRows = 27;
  // Behind them stand those of an ending, the numbers of a word's last letters, beginning with the last one and with
  // its lowest bit; in front of a shorter word they are 0, at the place of another character they mean nothing.
  static constexpr size_t kEndingLetters = 3;
  static constexpr size_t kEndingRows = kEndingLetters * kLetterNumberBits;
  static constexpr size_t kRows = kSetRows + kEndingRows;
  static constexpr size_t kBlockWords = 64;
  // The bitmaps of so many words lie together, a row after the other, so that they grow with the words. Word n is bit
  // n % 64 of block n / 64.
  static constexpr size_t kGroupBlocks = 512;
  static constexpr size_t kGroupWords = kGroupBlocks * kBlockWords;
  // From a row of a group to the next, in blocks. At a power of two the rows would drive each other out of the caches.
  static constexpr size_t kStride = kGroupBlocks + 8;

  LetterBitmaps() = default;
  // Room for the words with the numbers 0 to `words - 1`, which hold nothing yet.
  explicit LetterBitmaps(size_t words);

  // The kGroupBlocks blocks of a row of the group that begins with word `first`. Those of the same row in the next
  // group stand kRows * kStride further on, and may be fetched early from the last group, too.
  const uint64_t* Row(size_t first, size_t row) const {
    return bits_.data() + (first / kGroupWords * kRows + row) * kStride;
  }
  LetterSet Letters(size_t word) const { return Bits(word, 0, kSetRows); }
  uint32_t Ending(size_t word) const { return Bits(word, kSetRows, kEndingRows); }
  // Where the first row's bits of the block of a word stand; those of the next row are kStride further on.
  uint64_t* Block(size_t word) {
    return bits_.data() + word / kGroupWords * kRows * kStride + word % kGroupWords / kBlockWords;
  }

 private:
  uint32_t Bits(size_t word, size_t firstRow, size_t rows) const;

  BigBuffer<uint64_t> bits_;
};

}  // namespace quorvane
