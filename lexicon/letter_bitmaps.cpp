#include "lexicon/letter_bitmaps.h"

namespace quorvane {

LetterBitmaps::LetterBitmaps(size_t words) : bits_((words / kGroupWords + 1) * kRows * kStride) {}

LetterSet LetterBitmaps::Letters(size_t word) const {
  LetterSet letters = 0;
  for (unsigned row = 0; row < kRows; ++row) {
    const uint64_t bits = Row(word, row)[word % kGroupWords / kBlockWords];
    letters |= static_cast<LetterSet>(bits >> word % kBlockWords & 1) << row;
  }
  return letters;
}

}  // namespace quorvane
