// Which words hold a letter: a bitmap for each letter, which a search reads for the letters that it asks for alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/big_buffer.h"
#include "lexicon/letter_set.h"

namespace quorvane {

class LetterBitmaps {
 public:
  static constexpr size_t kRows = 27;  // One for each bit of a letter set: row 0 other characters, then "a" to "z".
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

  // The kGroupBlocks blocks of a row of the group that begins with word `first`.
  const uint64_t* Row(size_t first, unsigned row) const {
    return bits_.data() + (first / kGroupWords * kRows + row) * kStride;
  }
  LetterSet Letters(size_t word) const;
  // Where the first row's bits of the block of a word stand; those of the next row are kStride further on.
  uint64_t* Block(size_t word) {
    return bits_.data() + word / kGroupWords * kRows * kStride + word % kGroupWords / kBlockWords;
  }

 private:
  BigBuffer<uint64_t> bits_;
};

}  // namespace quorvane
