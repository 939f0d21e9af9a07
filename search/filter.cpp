#include "search/filter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

#include "search/byte_masks.h"

namespace quorvane {
namespace {

constexpr size_t kBlockWords = LetterBitmaps::kBlockWords;

// A bit for each of 64 words whose length fits.
uint64_t LengthsFit(const uint8_t* lengths, const WordFilter& filter) {
  uint64_t mask = 0;
#ifdef QUORVANE_VECTORS
  const __m128i shortest = _mm_set1_epi8(static_cast<char>(filter.shortest));
  const __m128i span = _mm_set1_epi8(static_cast<char>(filter.longest - filter.shortest));
  for (unsigned i = 0; i < kBlockWords; i += 16) {
    const __m128i fromShortest = _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(lengths + i)), shortest);
    mask |= MaskOf(_mm_cmpeq_epi8(_mm_min_epu8(fromShortest, span), fromShortest)) << i;
  }
#else
  for (unsigned i = 0; i < kBlockWords; ++i) {
    mask |= static_cast<uint64_t>(lengths[i] >= filter.shortest && lengths[i] <= filter.longest) << i;
  }
#endif
  return mask;
}

// The bits of a block from `first` on, and up to `last`.
constexpr uint64_t FromBit(size_t first) {
  return ~uint64_t{0} << first;
}
constexpr uint64_t ToBit(size_t last) {
  return ~uint64_t{0} >> (63 - last);
}

}  // namespace

void WordFilter::Allow(LetterSet allowed, unsigned blankTiles) {
  blanks = blankTiles;
  if (blanks == 0) {
    care |= kAllLetters & ~allowed;
  } else {
    forbidden = kAllLetters & ~allowed;
  }
}

void WordFilter::Narrow(const WordFilter& other) {
  shortest = std::max(shortest, other.shortest);
  longest = std::min(longest, other.longest);
  bool possible = (care & other.care & (want ^ other.want)) == 0;
  care |= other.care;
  want |= other.want;
  for (size_t i = 0; i < ending.size(); ++i) {
    possible = possible && (ending[i] == 0 || other.ending[i] == 0 || ending[i] == other.ending[i]);
    ending[i] = ending[i] != 0 ? ending[i] : other.ending[i];
  }
  if (!possible) {
    shortest = 1;
    longest = 0;
  }
}

namespace {

// The questions of one filter to the blocks of a chunk.
class Questions {
 public:
  Questions(const Lexicon& lexicon, const WordFilter& filter, WordNumber chunk)
      : filter_(filter), lengths_(lexicon.Lengths() + chunk) {
    // Those come first that drop the most words: the letters of the ending, which need not be asked for again, then
    // those that are seldom wanted, or often there but forbidden.
    LetterSet wanted = filter.want;
    for (size_t i = 0; i < filter.ending.size(); ++i) {
      if (filter.ending[i] != 0) {
        endings_[endingCount_++] = EndLetter(lexicon, chunk, i, filter.ending[i]);
        wanted &= ~LetterBit(filter.ending[i]);
      }
    }
    constexpr std::string_view kSeldomFirst = "jqxzwkvfybhpmgudcltnosraie";
    for (const char c : kSeldomFirst) {
      AddRow(lexicon, chunk, wanted, c, 0);
    }
    std::for_each(kSeldomFirst.rbegin(), kSeldomFirst.rend(),
                  [&](char c) { AddRow(lexicon, chunk, filter.care & ~filter.want, c, ~uint64_t{0}); });
    for (const char c : kSeldomFirst) {
      if ((filter.forbidden & LetterBit(c)) != 0) {
        forbidden_[forbiddenCount_++] = RowOf(lexicon, chunk, c);
      }
    }
  }

  bool Impossible() const { return filter_.shortest > filter_.longest; }
  // A word with all the letters that are wanted is as long as they are many.
  bool AskLength() const {
    return filter_.shortest > std::max(static_cast<unsigned>(std::popcount(filter_.want)), 1u) ||
           filter_.longest < kMaxWordLength;
  }
  uint64_t Length(size_t block) const { return LengthsFit(lengths_ + kBlockWords * block, filter_); }

  // Fills the blocks `from` to `last`, of which the first and the last have the given bits at most.
  void Fill(size_t from, size_t last, uint64_t firstBits, uint64_t lastBits, Survivors& survivors) const {
    const auto fill = [&](auto bitsOf) {
      const uint64_t ends = from == last ? firstBits & lastBits : firstBits;
      survivors.Fill(from, from + 1, [&](size_t block) { return bitsOf(block) & ends; });
      if (from < last) {
        survivors.Fill(from + 1, last, bitsOf);
        survivors.Fill(last, last + 1, [&](size_t block) { return bitsOf(block) & lastBits; });
      }
    };
    if (AskLength() && (rowCount_ + endingCount_ == 0 || filter_.longest - filter_.shortest < kFewLengths)) {
      fill([this](size_t block) { return Length(block); });
      NarrowByEnding(0, survivors);
      NarrowByRows(0, survivors);
    } else if (endingCount_ > 0) {
      fill([this](size_t block) { return endings_[0].Bits(block); });
      NarrowByEnding(1, survivors);
      NarrowByRows(0, survivors);
      NarrowByLength(survivors);
    } else {
      // With two rows at once about every list of blocks that can become short is short.
      const size_t asked = std::min<size_t>(rowCount_, 2);
      switch (asked) {
        case 0:
          fill([](size_t) { return ~uint64_t{0}; });
          break;
        case 1:
          fill([this](size_t block) { return rows_[0].Bits(block); });
          break;
        default:
          fill([this](size_t block) { return rows_[0].Bits(block) & rows_[1].Bits(block); });
          break;
      }
      NarrowByRows(asked, survivors);
      NarrowByLength(survivors);
    }
    NarrowByBlanks(survivors);
  }

  void Narrow(Survivors& survivors) const {
    if (Impossible()) {
      survivors.Narrow([](size_t, uint64_t) { return uint64_t{0}; });
      return;
    }
    NarrowByLength(survivors);
    NarrowByEnding(0, survivors);
    NarrowByRows(0, survivors);
    NarrowByBlanks(survivors);
  }

 private:
  // Of fewer lengths the length drops more than a letter does.
  static constexpr unsigned kFewLengths = 3;

  // The bitmap of a letter that is wanted, or, turned round, forbidden.
  struct Row {
    const uint64_t* bits;
    uint64_t turned;
    // The same bits of the next group, too far away for the processor to foresee, are fetched meanwhile.
    uint64_t Bits(size_t block) const {
      FetchEarly(bits + block + LetterBitmaps::kRows * LetterBitmaps::kStride);
      return bits[block] ^ turned;
    }
  };

  // The bitmaps of the number of a letter at the end.
  struct EndRows {
    std::array<Row, kLetterNumberBits> rows;
    uint64_t Bits(size_t block) const {
      uint64_t bits = ~uint64_t{0};
      for (const Row& row : rows) {
        bits &= row.Bits(block);
      }
      return bits;
    }
  };

  static EndRows EndLetter(const Lexicon& lexicon, WordNumber chunk, size_t place, char letter) {
    EndRows end;
    for (size_t bit = 0; bit < kLetterNumberBits; ++bit) {
      const size_t row = LetterBitmaps::kSetRows + place * kLetterNumberBits + bit;
      const bool set = (LetterNumber(letter) >> bit & 1u) != 0;
      end.rows[bit] = {lexicon.Bitmaps().Row(chunk, row), set ? 0 : ~uint64_t{0}};
    }
    return end;
  }
  static const uint64_t* RowOf(const Lexicon& lexicon, WordNumber chunk, char letter) {
    return lexicon.Bitmaps().Row(chunk, static_cast<unsigned>(letter - 'a' + 1));
  }
  void AddRow(const Lexicon& lexicon, WordNumber chunk, LetterSet letters, char letter, uint64_t turned) {
    if ((letters & LetterBit(letter)) != 0) {
      rows_[rowCount_++] = {RowOf(lexicon, chunk, letter), turned};
    }
  }

  void NarrowByLength(Survivors& survivors) const {
    if (AskLength()) {
      survivors.Narrow([this](size_t block, uint64_t bits) { return bits & Length(block); });
    }
  }
  void NarrowByEnding(size_t from, Survivors& survivors) const {
    for (size_t i = from; i < endingCount_; ++i) {
      survivors.Narrow([&end = endings_[i]](size_t block, uint64_t bits) { return bits & end.Bits(block); });
    }
  }
  void NarrowByRows(size_t from, Survivors& survivors) const {
    for (size_t i = from; i < rowCount_; ++i) {
      survivors.Narrow([&row = rows_[i]](size_t block, uint64_t bits) { return bits & row.Bits(block); });
    }
  }
  // Counts in each word the forbidden letters, up to one more than there are blanks.
  void NarrowByBlanks(Survivors& survivors) const {
    if (filter_.blanks == 0 || filter_.blanks >= forbiddenCount_) {
      return;
    }
    survivors.Narrow([this](size_t block, uint64_t bits) {
      std::array<uint64_t, LetterBitmaps::kSetRows + 1> atLeast{~uint64_t{0}};
      for (size_t i = 0; i < forbiddenCount_; ++i) {
        for (size_t n = filter_.blanks + 1; n > 0; --n) {
          atLeast[n] |= atLeast[n - 1] & forbidden_[i][block];
        }
      }
      return bits & ~atLeast[filter_.blanks + 1];
    });
  }

  const WordFilter& filter_;
  const uint8_t* lengths_;
  std::array<Row, LetterBitmaps::kSetRows> rows_;
  size_t rowCount_ = 0;
  std::array<EndRows, LetterBitmaps::kEndingLetters> endings_;
  size_t endingCount_ = 0;
  std::array<const uint64_t*, LetterBitmaps::kSetRows> forbidden_;
  size_t forbiddenCount_ = 0;
};

}  // namespace

void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, WordNumber last,
                 Survivors& survivors) {
  survivors.Begin(first);
  const Questions ask(lexicon, filter, survivors.First());
  if (!ask.Impossible()) {
    const size_t from = first - survivors.First();
    const size_t to = last - survivors.First();
    ask.Fill(from / kBlockWords, to / kBlockWords, FromBit(from % kBlockWords), ToBit(to % kBlockWords), survivors);
  }
}

void NarrowWords(const Lexicon& lexicon, const WordFilter& filter, Survivors& survivors) {
  Questions(lexicon, filter, survivors.First()).Narrow(survivors);
}

}  // namespace quorvane
