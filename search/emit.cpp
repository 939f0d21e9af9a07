#include "search/emit.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "search/byte_masks.h"

namespace quorvane {
namespace {

constexpr size_t kOverrun = 8;  // Numbers that a step may write behind the last one that counts.

// From how many bits in 64 on whole bytes of bits are expanded at once.
constexpr int kDense = 10;

// For each byte of bits the positions of its ones, lowest first.
constexpr auto kPositions = [] {
  std::array<std::array<uint8_t, 8>, 256> positions{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    unsigned next = 0;
    for (unsigned bit = 0; bit < 8; ++bit) {
      if ((byte >> bit & 1u) != 0) {
        positions[byte][next++] = static_cast<uint8_t>(bit);
      }
    }
  }
  return positions;
}();

// Eight at once, whether there are so many or not: a loop of unknown length costs more than the needless ones.
WordNumber* EmitSparse(uint64_t bits, WordNumber first, WordNumber* out) {
  WordNumber* const end = out + std::popcount(bits);
  do {
    for (int i = 0; i < 8; ++i) {
      *out++ = first + static_cast<WordNumber>(std::countr_zero(bits));
      bits &= bits - 1;
    }
  } while (bits != 0);
  return end;
}

WordNumber* EmitDense(uint64_t bits, WordNumber first, WordNumber* out) {
  for (unsigned i = 0; i < 64; i += 8) {
    const auto byte = static_cast<uint8_t>(bits >> i);
    const std::array<uint8_t, 8>& positions = kPositions[byte];
#ifdef QUORVANE_VECTORS
    const __m128i eight = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(positions.data()));
    const __m128i base = _mm_set1_epi32(static_cast<int>(first + i));
    auto* to = reinterpret_cast<__m128i*>(out);
    _mm_storeu_si128(to, _mm_add_epi32(base, _mm_cvtepu8_epi32(eight)));
    _mm_storeu_si128(to + 1, _mm_add_epi32(base, _mm_cvtepu8_epi32(_mm_srli_si128(eight, 4))));
#else
    for (unsigned k = 0; k < 8; ++k) {
      out[k] = first + i + positions[k];
    }
#endif
    out += std::popcount(byte);
  }
  return out;
}

}  // namespace

void FoundNumbers::Reserve(size_t size) {
  if (size + kOverrun <= numbers_.size()) {
    return;
  }
  BigBuffer<WordNumber> larger(std::max(size + kOverrun, numbers_.size() * 2));
  if (size_ != 0) {
    std::memcpy(larger.data(), numbers_.data(), size_ * sizeof(WordNumber));
  }
  numbers_ = std::move(larger);
}

void FoundNumbers::MakeReady(size_t size) {
  constexpr size_t kNumbersInPage = 4096 / sizeof(WordNumber);
  Reserve(size);
  for (size_t i = size_; i < numbers_.size(); i += kNumbersInPage) {
    static_cast<volatile WordNumber&>(numbers_[i]) = 0;
  }
}

void Emit(const Survivors& survivors, FoundNumbers& found) {
  const size_t more = survivors.Count();
  found.Reserve(found.size_ + more);
  WordNumber* out = found.numbers_.data() + found.size_;
  for (const size_t block : survivors.Blocks()) {
    const uint64_t bits = survivors.Bits(block);
    const WordNumber first = survivors.First(block);
    out = std::popcount(bits) < kDense ? EmitSparse(bits, first, out) : EmitDense(bits, first, out);
  }
  found.size_ += more;
}

}  // namespace quorvane
