#include "lexicon/letter_bitmaps.h"

namespace quorvane {

// One group more, for that behind the one being read is fetched early.
LetterBitmaps::LetterBitmaps(size_t words) : bits_((words / kGroupWords + 2) * kRows * kStride) {}

uint32_t LetterBitmaps::Bits(size_t word, size_t firstRow, size_t rows) const {
  uint32_t bits = 0;
  for (size_t i = 0; i < rows; ++i) {
    const uint64_t row = Row(word, firstRow + i)[word % kGroupWords / kBlockWords];
    bits |= static_cast<uint32_t>(row >> word % kBlockWords & 1) << i;
  }
  return bits;
}

}  // namespace quorvane
