#include "lexicon/letter_bitmaps.h"

#include <bit>

namespace quorvane {
namespace {

#ifdef QUORVANE_VECTORS

// A byte of 64 sets each.
struct Plane {
  __m128i sixteen[4];  // Vectors lose their alignment as template arguments.

  // The bits that stand highest, those of the first set lowest.
  uint64_t TopBits() const {
    uint64_t bits = 0;
    for (unsigned i = 0; i < 4; ++i) {
      bits |= static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(sixteen[i]))) << (16 * i);
    }
    return bits;
  }
  void MoveUp() {
    for (__m128i& bytes : sixteen) {
      bytes = _mm_add_epi8(bytes, bytes);
    }
  }
};

struct Planes {
  Plane of[4];

  explicit Planes(const LetterSet* sets) {
    const __m128i together = _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    for (size_t i = 0; i < 4; ++i) {
      const auto four = [&](size_t from) {
        const auto* begin = reinterpret_cast<const __m128i*>(sets + 16 * i + from);
        return _mm_shuffle_epi8(_mm_loadu_si128(begin), together);
      };
      const __m128i low01 = _mm_unpacklo_epi32(four(0), four(4));
      const __m128i high01 = _mm_unpackhi_epi32(four(0), four(4));
      const __m128i low23 = _mm_unpacklo_epi32(four(8), four(12));
      const __m128i high23 = _mm_unpackhi_epi32(four(8), four(12));
      of[0].sixteen[i] = _mm_unpacklo_epi64(low01, low23);
      of[1].sixteen[i] = _mm_unpackhi_epi64(low01, low23);
      of[2].sixteen[i] = _mm_unpacklo_epi64(high01, high23);
      of[3].sixteen[i] = _mm_unpackhi_epi64(high01, high23);
    }
  }
};

#endif

}  // namespace

LetterBitmaps::LetterBitmaps(size_t words) : bits_((words / kGroupWords + 1) * kRows * kGroupBlocks) {}

void LetterBitmaps::Set(size_t block, const LetterSet* sets) {
  uint64_t* rows = bits_.data() + block / kGroupBlocks * kRows * kGroupBlocks + block % kGroupBlocks;
#ifdef QUORVANE_VECTORS
  Planes planes(sets);
  for (unsigned row = kRows; row-- > 0;) {
    Plane& plane = planes.of[row / 8];
    if (row == kRows - 1) {
      for (unsigned unused = row % 8; unused < 7; ++unused) {
        plane.MoveUp();
      }
    }
    rows[row * kGroupBlocks] = plane.TopBits();
    plane.MoveUp();
  }
#else
  for (size_t i = 0; i < kBlockWords; ++i) {
    for (LetterSet rest = sets[i]; rest != 0; rest &= rest - 1) {
      rows[static_cast<size_t>(std::countr_zero(rest)) * kGroupBlocks] |= uint64_t{1} << i;
    }
  }
#endif
}

LetterSet LetterBitmaps::Letters(size_t word) const {
  LetterSet letters = 0;
  for (unsigned row = 0; row < kRows; ++row) {
    const uint64_t bits = Row(word, row)[word % kGroupWords / kBlockWords];
    letters |= static_cast<LetterSet>(bits >> word % kBlockWords & 1) << row;
  }
  return letters;
}

}  // namespace quorvane
