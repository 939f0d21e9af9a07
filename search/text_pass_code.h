// The pass over the text, compiled once for each width of vectors by the files that include it; only those do.
//
// Each question has a bit for each character, 64 to a block. Marks, the bits at the characters that the steps so far
// have reached, are shifted by one for the next character. Where others may stand between, they are added to a row of
// ones that ends at each line feed: the carry runs through the rest of the line. At last a mark at the end of each line
// says whether the word fits, and those bits are pressed together to one a word. No step depends on what is found, so
// there is nothing for the processor to guess.
//
// Nothing of the standard library is called here: what the compiler would share with other files might need
// instructions that the machine doesn't have.
#pragma once

#include <immintrin.h>

#include "search/text_program.h"

namespace quorvane {
namespace {

constexpr size_t kBatch = 64;  // Blocks that go through all steps together, in the nearest cache.

// The blocks of a batch. In front of them stands the last one of the batch before.
class Row {
 public:
  // Its last block is none yet.
  Row() { blocks_[kFront + kBatch - 1] = 0; }
  // To be written for the next batch; every batch but the last is full.
  uint64_t* Begin() {
    blocks_[kFront - 1] = blocks_[kFront + kBatch - 1];
    return blocks_ + kFront;
  }
  uint64_t* data() { return blocks_ + kFront; }
  const uint64_t* data() const { return blocks_ + kFront; }
  // A block further to the front: at each index the block before that of data().
  const uint64_t* Before() const { return blocks_ + kFront - 1; }

  uint64_t carry = 0;  // Out of the batch before, where the row was made by Spread.

 private:
  static constexpr size_t kFront = 8;
  alignas(64) uint64_t blocks_[kFront + kBatch];
};

#ifdef __AVX512BW__

uint64_t Equal(const char* text, char c) {
  return _mm512_cmpeq_epi8_mask(_mm512_loadu_si512(text), _mm512_set1_epi8(c));
}

uint64_t NoLetters(const char* text) {
  return _mm512_cmplt_epi8_mask(_mm512_loadu_si512(text), _mm512_set1_epi8('a'));
}

__m512i Repeated(const uint8_t* table) {
  return _mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(table)));
}

uint64_t InSymbol(const char* text, const TextSymbol& symbol) {
  const __m512i aToO = Repeated(symbol.aToO);
  const __m512i pToZ = Repeated(symbol.pToZ);
  const __m512i bytes = _mm512_loadu_si512(text);
  const __mmask64 half = _mm512_test_epi8_mask(bytes, _mm512_set1_epi8(0x10));
  return _mm512_movepi8_mask(
      _mm512_mask_blend_epi8(half, _mm512_shuffle_epi8(aToO, bytes), _mm512_shuffle_epi8(pToZ, bytes)));
}

#else

template <class Question>
uint64_t AskHalves(const char* text, Question question) {
  const auto half = [&](const char* from) {
    const __m256i answer = question(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from)));
    return static_cast<uint64_t>(static_cast<uint32_t>(_mm256_movemask_epi8(answer)));
  };
  return half(text) | half(text + 32) << 32;
}

uint64_t Equal(const char* text, char c) {
  return AskHalves(text, [c](__m256i bytes) { return _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(c)); });
}

uint64_t NoLetters(const char* text) {
  return AskHalves(text, [](__m256i bytes) { return _mm256_cmpgt_epi8(_mm256_set1_epi8('a'), bytes); });
}

uint64_t InSymbol(const char* text, const TextSymbol& symbol) {
  const __m256i aToO = _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(symbol.aToO)));
  const __m256i pToZ = _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(symbol.pToZ)));
  return AskHalves(text, [&](__m256i bytes) {
    const __m256i half = _mm256_slli_epi16(bytes, 3);
    return _mm256_blendv_epi8(_mm256_shuffle_epi8(aToO, bytes), _mm256_shuffle_epi8(pToZ, bytes), half);
  });
}

#endif

template <class Question>
void Fill(const char* text, size_t blocks, uint64_t* out, Question question) {
  for (size_t i = 0; i < blocks; ++i) {
    out[i] = question(text + 64 * i);
  }
}

// A mark becomes one at the next character, if `wanted` has it.
void Next(const Row& marks, const Row& wanted, size_t blocks, Row& to) {
  const uint64_t* from = marks.data();
  const uint64_t* before = marks.Before();
  const uint64_t* want = wanted.data();
  uint64_t* out = to.Begin();
  for (size_t i = 0; i < blocks; ++i) {
    out[i] = (from[i] << 1 | before[i] >> 63) & want[i];
  }
}

// A mark becomes marks at itself and all that follows in its line, line feed included, as far as `wanted` has them.
void Spread(const uint64_t* marks, const Row& wanted, const Row& lineFeeds, size_t blocks, Row& to) {
  const uint64_t* ends = lineFeeds.data();
  const uint64_t* want = wanted.data();
  uint64_t* out = to.Begin();
  uint64_t sums[kBatch];
  uint64_t carries[kBatch + 1];
  carries[0] = to.carry;
  uint64_t unbroken = 0;  // Whether a block without a line feed lets a carry through.
  for (size_t i = 0; i < blocks; ++i) {
    const uint64_t inLine = ~ends[i];
    sums[i] = (marks[i] & inLine) + inLine;
    carries[i + 1] = sums[i] < inLine ? 1 : 0;
    unbroken |= ends[i] == 0 ? 1 : 0;
  }
  for (size_t i = 0; unbroken != 0 && i < blocks; ++i) {
    carries[i + 1] |= sums[i] + carries[i] < sums[i] ? 1 : 0;
  }
  for (size_t i = 0; i < blocks; ++i) {
    out[i] = (((sums[i] + carries[i]) ^ ~ends[i]) | marks[i]) & want[i];
  }
  to.carry = carries[blocks];
}

// Presses the bits at the line feeds together, behind those that stand there.
struct LineBits {
  uint64_t* out;
  uint64_t bits;
  unsigned count;

  void Add(const Row& ends, const Row& lineFeeds, size_t blocks) {
    const uint64_t* fitting = ends.data();
    const uint64_t* feeds = lineFeeds.data();
    const auto lines = [](uint64_t of) { return static_cast<unsigned>(_mm_popcnt_u64(of)); };
    for (size_t i = 0; i < blocks; i += 2) {
      // Two blocks together, for each waits for the one before.
      const unsigned half = lines(feeds[i]);
      const uint64_t more = _pext_u64(fitting[i], feeds[i]) | _pext_u64(fitting[i + 1], feeds[i + 1]) << half;
      const unsigned all = count + half + lines(feeds[i + 1]);
      bits |= more << count;
      *out = bits;
      // What a full element had no room for begins the next: a shift by 64 - count, of which count may be 0.
      bits = all < 64 ? bits : more >> 1 >> (63 - count);
      out += all / 64;
      count = all % 64;
    }
    *out = bits;
  }
};

class Pass {
 public:
  Pass(const TextProgram& program, unsigned firstBit, uint64_t* bits) : program_(program), lines_{bits, 0, firstBit} {
    lineFeeds_.data()[kBatch - 1] = ~uint64_t{0};
    asksForLetters_ = program.toEnd;
    for (size_t i = 0; i < program.symbolCount; ++i) {
      asksForLetters_ = asksForLetters_ || !program.symbols[i].single;
    }
  }

  void Run(const char* text, const char* end) {
    // From the start of a cache line on, for a vector in two of them costs twice. What stands there in front of the
    // text is passed over, as if a line had just ended.
    const size_t before = reinterpret_cast<uintptr_t>(text) % 64;
    uint64_t notYet = before == 0 ? 0 : ~uint64_t{0} >> (64 - before);
    for (text -= before; text < end; text += 64 * kBatch) {
      const auto left = static_cast<size_t>(end - text);
      const size_t blocks = left >= 64 * kBatch ? kBatch : (left + 63) / 64;
      Look(text, blocks, left);
      uint64_t* feeds = lineFeeds_.data();
      feeds[0] = (feeds[0] & ~notYet) | (notYet - (notYet >> 1));
      const Row& fitting = AtEnds(Walk(blocks), blocks);
      feeds[0] &= ~notYet;
      lines_.Add(fitting, lineFeeds_, blocks);
      notYet = 0;
    }
  }

 private:
  // What stands where.
  void Look(const char* text, size_t blocks, size_t left) {
    uint64_t* feeds = lineFeeds_.Begin();
    Fill(text, blocks, feeds, [](const char* from) {
      _mm_prefetch(from + 64 * kBatch, _MM_HINT_T0);  // The next batch, while this one is worked on.
      return Equal(from, '\n');
    });
    if (left <= 64 * blocks) {
      const uint64_t last = uint64_t{1} << (left - 1) % 64;
      feeds[blocks - 1] = (feeds[blocks - 1] & (last - 1)) | last;
      if (blocks < kBatch) {
        feeds[blocks] = 0;  // Lines are counted by two blocks.
      }
    }
    uint64_t* noLetters = noLetters_.Begin();
    if (asksForLetters_) {
      Fill(text, blocks, noLetters, NoLetters);
    }
    for (size_t i = 0; i < program_.symbolCount; ++i) {
      const TextSymbol& symbol = program_.symbols[i];
      uint64_t* out = symbols_[i].Begin();
      if (symbol.single) {
        Fill(text, blocks, out, [letter = symbol.letter](const char* from) { return Equal(from, letter); });
      } else {
        Fill(text, blocks, out, [&](const char* from) { return InSymbol(from, symbol); });
        for (size_t k = 0; k < blocks; ++k) {
          out[k] &= ~noLetters[k];
        }
      }
    }
  }

  // Marks where the last step arrives.
  const Row& Walk(size_t blocks) {
    const Row* marks = &lineFeeds_;
    for (size_t i = 0; i < program_.stepCount; ++i) {
      const TextStep step = program_.steps[i];
      const Row& symbol = symbols_[step.symbol];
      if (i == 0 && !program_.fromStart) {
        marks = &symbol;
        continue;
      }
      (step.later ? Later(*marks, symbol, blocks, marks_[i]) : Next(*marks, symbol, blocks, marks_[i]));
      marks = &marks_[i];
    }
    if (program_.toEnd) {
      Next(*marks, noLetters_, blocks, behind_);
      marks = &behind_;
    }
    return *marks;
  }

  // A mark becomes marks at all that follows, but not at itself.
  void Later(const Row& marks, const Row& wanted, size_t blocks, Row& to) {
    const uint64_t* from = marks.data();
    const uint64_t* before = marks.Before();
    uint64_t next[kBatch];
    for (size_t i = 0; i < blocks; ++i) {
      next[i] = from[i] << 1 | before[i] >> 63;
    }
    Spread(next, wanted, lineFeeds_, blocks, to);
  }

  // Marks at the ends of the lines with as many arrivals as are asked for: each after the one before.
  const Row& AtEnds(const Row& arrived, size_t blocks) {
    const Row* marks = &arrived;
    for (unsigned times = 1; times < program_.minTimes; ++times) {
      Later(*marks, arrived, blocks, again_[times]);
      marks = &again_[times];
    }
    Spread(marks->data(), lineFeeds_, lineFeeds_, blocks, ends_);
    if (program_.maxTimes == 0) {
      return ends_;
    }
    for (unsigned times = program_.minTimes; times <= program_.maxTimes; ++times) {
      Later(*marks, arrived, blocks, again_[times]);
      marks = &again_[times];
    }
    Spread(marks->data(), lineFeeds_, lineFeeds_, blocks, tooMany_);
    uint64_t* fitting = ends_.Begin();
    for (size_t i = 0; i < blocks; ++i) {
      fitting[i] &= ~tooMany_.data()[i];
    }
    return ends_;
  }

  const TextProgram& program_;
  LineBits lines_;
  bool asksForLetters_;
  Row lineFeeds_;
  Row noLetters_;
  Row symbols_[TextProgram::kMostSymbols];
  Row marks_[TextProgram::kMostSteps];
  Row behind_;
  Row again_[TextProgram::kMostTimes + 1];
  Row ends_;
  Row tooMany_;
};

}  // namespace
}  // namespace quorvane
