#include "search/verify.h"

#include <algorithm>
#include <bit>

#include "search/byte_masks.h"

namespace quorvane {
namespace {

constexpr uint64_t LowBits(unsigned count) {
  return count >= 64 ? ~uint64_t{0} : (uint64_t{1} << count) - 1;
}

// Of two questions about as many words each way, without a branch to guess.
constexpr bool Both(bool one, bool other) {
  return (static_cast<unsigned>(one) & static_cast<unsigned>(other)) != 0;
}

// A word of 64 characters may leave no room for a suffix; such a pattern has none.
bool FitsPlaces(const Places& places, uint64_t mask, unsigned suffixStart) {
  const uint64_t suffix = suffixStart < 64 ? places.suffix << suffixStart : 0;
  return ((places.prefix | suffix) & ~mask) == 0;
}

uint64_t Narrow(uint64_t starts, const Places& places, uint64_t mask) {
  for (const uint8_t offset : places.middle) {
    starts &= mask >> offset;
  }
  return starts;
}

// The tests of words of letters, one type for each mode: `Accepts` of 16 * Vectors characters or fewer.

struct EndsTest {
  const Positions& p;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    return Both(p.prefix.FitAt(word), p.suffix.FitAt(word + length - p.after));
  }
};

struct RunTest {
  const Positions& p;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    const uint64_t starts = RunMask<Vectors>(word, p.run) & LowBits(length - p.middle + 1);
    const auto fitting = static_cast<unsigned>(std::popcount(starts));
    return Both(fitting >= p.minStarts, fitting <= p.maxStarts);
  }
};

struct PositionsTest {
  const Positions& p;

  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    const unsigned suffixStart = length - p.after;
    if (p.HasEnds() && !(p.prefix.FitAt(word) && p.suffix.FitAt(word + suffixStart))) {
      return false;
    }
    const auto at = [&](EndPlace place) { return word[place.fromEnd ? suffixStart + place.offset : place.offset]; };
    for (const SameEnds& same : p.sameEnds) {
      if (at(same.one) != at(same.other)) {
        return false;
      }
    }
    uint64_t starts = p.hasMiddle ? LowBits(suffixStart - p.middle + 1) & ~LowBits(p.before) : 0;
    for (const Symbol& symbol : p.symbols) {
      const uint64_t mask =
          symbol.single ? EqualMask<Vectors>(word, symbol.letter) : ClassMask<Vectors>(word, symbol.letters);
      if (!FitsPlaces(symbol.inside, mask, suffixStart) || !FitsPlaces(symbol.outside, ~mask, suffixStart)) {
        return false;
      }
      starts = Narrow(Narrow(starts, symbol.inside, mask), symbol.outside, ~mask);
    }
    return !p.hasMiddle || MiddleFits<Vectors>(word, starts, at);
  }

  template <int Vectors, class At>
  bool MiddleFits(const char* word, uint64_t starts, At at) const {
    if (p.run.size != 0) {
      starts &= RunMask<Vectors>(word, p.run);
    }
    for (const SameAsEnd& same : p.sameAsEnd) {
      starts &= EqualMask<Vectors>(word, at(same.end)) >> same.middle;
    }
    for (const SameInMiddle& same : p.sameInMiddle) {
      starts &= SameMask<Vectors>(word, word + (same.later - same.first)) >> same.first;
    }
    return starts != 0;
  }
};

struct OrderTest {
  const std::string& letters;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    uint64_t rest = LowBits(length);
    uint64_t found = 0;
    for (const char c : letters) {
      found = EqualMask<Vectors>(word, c) & rest;
      // Only what lies behind the leftmost find may hold the next letter; without a find nothing is left.
      rest &= ~((found & (~found + 1)) * 2 - 1);
    }
    return found != 0;
  }
};

struct CountsTest {
  const std::vector<LetterCount>& counts;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    const uint64_t inside = LowBits(length);
    return std::all_of(counts.begin(), counts.end(), [&](const LetterCount& count) {
      const auto found = static_cast<unsigned>(std::popcount(EqualMask<Vectors>(word, count.letter) & inside));
      return found >= count.min && found <= count.max;
    });
  }
};

struct TilesTest {
  const std::vector<LetterCount>& tiles;
  unsigned blanks;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length) const {
    const uint64_t inside = LowBits(length);
    unsigned laid = blanks;
    for (const LetterCount& tile : tiles) {
      laid += std::min(static_cast<unsigned>(std::popcount(EqualMask<Vectors>(word, tile.letter) & inside)), tile.max);
    }
    return laid >= length;
  }
};

// What lies in far memory is asked for early: about five blocks of words ahead, the text of one.
constexpr size_t kFetchAhead = 4096;
constexpr size_t kTextOfBlock = size_t{13} * 64;
constexpr int kWorthFetching = 3;  // Words to look at in a block.

// In the time of a look at one word a pass over the text is done with about so many.
constexpr size_t kWordsOfALook = 32;
constexpr size_t kWordsOfAShortLook = 8;

void FetchAhead(const char* text) {
  for (size_t i = 0; i < kTextOfBlock; i += 64) {
    FetchEarly(text + kFetchAhead + i);
  }
}

// Of the words of a block, `first` with bit 0, those that are accepted.
template <class Accepts>
uint64_t Accepted(WordNumber first, uint64_t bits, Accepts accepts) {
  uint64_t kept = 0;
  for (; bits != 0; bits &= bits - 1) {
    const auto i = static_cast<unsigned>(std::countr_zero(bits));
    kept |= static_cast<uint64_t>(accepts(first + i)) << i;
  }
  return kept;
}

// Gives each block the bits `kept(block, bits)`; where there is much to look at, the text further on is fetched.
template <class Kept>
void NarrowFetching(const Lexicon& lexicon, const char* text, Survivors& survivors, Kept kept) {
  survivors.Narrow([&](size_t block, uint64_t bits) {
    if (std::popcount(bits) >= kWorthFetching) {
      FetchAhead(text + lexicon.Starts()[survivors.First(block)]);
    }
    return kept(block, bits);
  });
}

}  // namespace

Verifier::Verifier(const PreparedPattern& prepared, const CharacterLists& lists, unsigned shortest, unsigned longest,
                   VectorWidth vectors)
    : plan_(MakeVerifyPlan(prepared, lists, shortest, longest)),
      textPass_(plan_.text, vectors),
      wordTest_(prepared, lists) {}

uint64_t Verifier::Tried(const Lexicon& lexicon, WordNumber first, uint64_t bits) {
  return Accepted(first, bits, [&](WordNumber number) { return wordTest_.Accepts(lexicon.FoldedWord(number)); });
}

// Words that hold other characters than letters, and very long ones, are tried by the one definition of matching.
template <class Test>
void Verifier::Keep(const Lexicon& lexicon, Survivors& survivors, Test test) {
  const WordStarts& starts = lexicon.Starts();
  const uint8_t* lengths = lexicon.Lengths();
  const uint64_t* others = lexicon.Bitmaps().Row(survivors.First(), 0);
  const char* text = lexicon.FoldedText();
  const auto ofLetters = [&](WordNumber number) {
    const unsigned length = lengths[number];
    const char* word = text + starts[number];
    if (length <= 16) [[likely]] {
      return test.template Accepts<1>(word, length);
    }
    if (length > kMaxMaskLength) [[unlikely]] {
      return wordTest_.Accepts({word, length});
    }
    return length <= 32 ? test.template Accepts<2>(word, length) : test.template Accepts<4>(word, length);
  };
  NarrowFetching(lexicon, text, survivors, [&](size_t block, uint64_t bits) {
    const WordNumber first = survivors.First(block);
    uint64_t kept = Accepted(first, bits & ~others[block], ofLetters);
    if ((bits & others[block]) != 0) [[unlikely]] {
      kept |= Tried(lexicon, first, bits & others[block]);
    }
    return kept;
  });
}

void Verifier::Verify(const Lexicon& lexicon, Survivors& survivors) {
  const size_t wordsOfALook = plan_.mode == VerifyMode::Ends ? kWordsOfAShortLook : kWordsOfALook;
  if (textPass_.IsWorth(survivors, wordsOfALook)) {
    textPass_.Keep(lexicon, survivors, [this](std::string_view word) { return wordTest_.Accepts(word); });
    return;
  }
  const auto keep = [&](auto test) { Keep(lexicon, survivors, test); };
  switch (plan_.mode) {
    case VerifyMode::FilterDecides:
      break;
    case VerifyMode::FilterDecidesLetters: {
      const uint64_t* others = lexicon.Bitmaps().Row(survivors.First(), 0);
      survivors.Narrow([&](size_t block, uint64_t bits) {
        return (bits & ~others[block]) | Tried(lexicon, survivors.First(block), bits & others[block]);
      });
      break;
    }
    case VerifyMode::Ends:
      keep(EndsTest{plan_.positions});
      break;
    case VerifyMode::Run:
      keep(RunTest{plan_.positions});
      break;
    case VerifyMode::Positions:
      keep(PositionsTest{plan_.positions});
      break;
    case VerifyMode::OrderedLetters:
      keep(OrderTest{plan_.orderedLetters});
      break;
    case VerifyMode::LetterCounts:
      keep(CountsTest{plan_.letterCounts});
      break;
    case VerifyMode::Tiles:
      keep(TilesTest{plan_.letterCounts, plan_.filter.blanks});
      break;
    case VerifyMode::WordByWord:
      NarrowFetching(lexicon, lexicon.FoldedText(), survivors,
                     [&](size_t block, uint64_t bits) { return Tried(lexicon, survivors.First(block), bits); });
      break;
  }
}

bool IsPalindrome(std::string_view word) {
  return std::equal(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(word.size() / 2), word.rbegin());
}

void KeepPalindromes(const Lexicon& lexicon, Survivors& survivors) {
  NarrowFetching(lexicon, lexicon.Text(), survivors, [&](size_t block, uint64_t bits) {
    return Accepted(survivors.First(block), bits,
                    [&](WordNumber number) { return IsPalindrome(lexicon.Word(number)); });
  });
}

}  // namespace quorvane
