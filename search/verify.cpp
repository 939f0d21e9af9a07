#include "search/verify.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

#include "base/text.h"
#include "search/byte_masks.h"

namespace quorvane {
namespace {

// A test of a word by masks speaks of its first 64 characters; longer words are tested one character at a time.
constexpr unsigned kMaxMaskLength = 64;

constexpr uint64_t LowBits(unsigned count) {
  return count >= 64 ? ~uint64_t{0} : (uint64_t{1} << count) - 1;
}

// Where in a pattern something must hold.
struct Places {
  uint64_t prefix = 0;          // Bit i: at the word's character i.
  uint64_t suffix = 0;          // Bit i: at character i of the last `after`.
  std::vector<uint8_t> middle;  // At these offsets from the start of the middle.
};

// One set of letters, with the places that demand a letter of it and those that demand any other.
struct Symbol {
  bool single = false;  // A set of one letter, `letter`.
  char letter = 0;
  LetterClass letters;
  Places inside;
  Places outside;
};

// A place of the anchored ends.
struct EndPlace {
  bool fromEnd = false;  // Counted from the start of the suffix.
  uint8_t offset = 0;
};

// Two characters of the word that must be the same.
struct SameEnds {
  EndPlace one;
  EndPlace other;
};
struct SameAsEnd {
  EndPlace end;
  uint8_t middle;
};
struct SameInMiddle {
  uint8_t first;
  uint8_t later;
};

// Letters at fixed places of 16 characters in a row.
struct FixedLetters {
  alignas(16) std::array<char, 16> letters{};
  uint64_t places = 0;

  bool Add(unsigned place, char letter) {
    if (place >= letters.size()) {
      return false;
    }
    letters[place] = letter;
    places |= uint64_t{1} << place;
    return true;
  }
  bool FitAt(const char* text) const { return (SameMask<1>(text, letters.data()) & places) == places; }
};

// Everything that the patterns with positions demand of a word of letters.
struct Positions {
  unsigned before = 0;
  unsigned middle = 0;
  unsigned after = 0;
  bool hasMiddle = false;
  FixedLetters prefix;
  FixedLetters suffix;
  ByteRun run;  // The middle, where it is letters alone.
  std::vector<Symbol> symbols;
  std::vector<SameEnds> sameEnds;
  std::vector<SameAsEnd> sameAsEnd;
  std::vector<SameInMiddle> sameInMiddle;
  // How many starts of the middle must fit.
  unsigned minStarts = 1;
  unsigned maxStarts = kMaxWordLength;

  // Nothing but letters at the ends, or in the middle.
  bool OnlyFixed() const { return symbols.empty() && sameEnds.empty() && sameAsEnd.empty() && sameInMiddle.empty(); }
  bool HasEnds() const { return (prefix.places | suffix.places) != 0; }
  bool Trivial() const { return OnlyFixed() && !HasEnds() && run.size == 0 && minStarts <= 1; }
};

// What a letter's number of occurrences must be.
struct LetterCount {
  char letter;
  unsigned min;
  unsigned max;
};

enum class Mode {
  FilterDecides,
  Ends,       // Letters at the ends alone.
  Run,        // A run of letters alone.
  Positions,  // Everything else with positions.
  OrderedLetters,
  LetterCounts,
  WordByWord,
};

// The letters that a pattern character (no digit, no "=") stands for, asked of the one definition.
LetterSet LettersOf(char patternCharacter, const CharacterLists& lists) {
  Matcher matcher(lists);
  LetterSet set = 0;
  for (char c = 'a'; c <= 'z'; ++c) {
    matcher.StartWord();
    matcher.MatchChar(patternCharacter, c);
    if (matcher.MatchFlag()) {
      set |= LetterBit(c);
    }
  }
  return set;
}

bool IsBoundDigit(char c) {
  return c >= '1' && c <= '3';
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
  bool Accepts(const char* word, unsigned length, LetterSet) const {
    return p.prefix.FitAt(word) && p.suffix.FitAt(word + length - p.after);
  }
};

struct RunTest {
  const Positions& p;
  template <int Vectors>
  bool Accepts(const char* word, unsigned length, LetterSet) const {
    const uint64_t starts = RunMask<Vectors>(word, p.run) & LowBits(length - p.middle + 1);
    const auto fitting = static_cast<unsigned>(std::popcount(starts));
    return fitting >= p.minStarts && fitting <= p.maxStarts;
  }
};

struct PositionsTest {
  const Positions& p;

  template <int Vectors>
  bool Accepts(const char* word, unsigned length, LetterSet) const {
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
  bool Accepts(const char* word, unsigned length, LetterSet) const {
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
  bool anagram;  // Then a letter set without repeats has said everything.
  template <int Vectors>
  bool Accepts(const char* word, unsigned length, LetterSet letters) const {
    if (anagram && static_cast<unsigned>(std::popcount(letters)) == length) {
      return true;
    }
    const uint64_t inside = LowBits(length);
    return std::all_of(counts.begin(), counts.end(), [&](const LetterCount& count) {
      const auto found = static_cast<unsigned>(std::popcount(EqualMask<Vectors>(word, count.letter) & inside));
      return found >= count.min && found <= count.max;
    });
  }
};

template <class Accepts>
void KeepAccepted(WordNumber first, uint64_t* survivors, size_t blocks, Accepts accepts) {
  for (size_t block = 0; block < blocks; ++block, first += 64) {
    uint64_t kept = 0;
    for (uint64_t bits = survivors[block]; bits != 0; bits &= bits - 1) {
      const auto i = static_cast<unsigned>(std::countr_zero(bits));
      kept |= static_cast<uint64_t>(accepts(first + i)) << i;
    }
    survivors[block] = kept;
  }
}

}  // namespace

struct Verifier::Plan {
  Plan(std::string_view patternText, PatternKind patternKind, const CharacterLists& characterLists)
      : pattern(patternText), kind(patternKind), lists(characterLists), wordTest(pattern, kind, lists) {}

  void Make();
  void MakePositions(std::string_view prefix, std::optional<std::string_view> middle, std::string_view suffix);
  void AddMiddle(std::string_view middle);
  Mode ModeOfPositions() const;
  Symbol& SymbolFor(LetterSet letters);
  void AddCharacter(char patternCharacter, std::optional<EndPlace> end, uint8_t middleOffset);
  void AddDigit(char digit, std::optional<EndPlace> end, uint8_t middleOffset);
  void MakeSequence();
  void MakeLetterChoice();
  void MakeAnagram();
  void LimitToWholePattern();

  template <class Test>
  void Keep(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks, Test test);

  std::string pattern;
  PatternKind kind;
  CharacterLists lists;
  WordTest wordTest;
  WordFilter filter;
  Mode mode = Mode::WordByWord;
  Positions positions;
  std::string orderedLetters;
  std::vector<LetterCount> letterCounts;
  struct DigitPlaces {
    std::optional<EndPlace> end;
    std::optional<uint8_t> middle;
  };
  std::array<DigitPlaces, 3> digits;
};

void Verifier::Plan::Make() {
  const std::string_view text = pattern;
  const size_t first = text.find('*');
  const size_t last = text.rfind('*');
  switch (kind) {
    case PatternKind::NoAsterisk:
      MakePositions(text, std::nullopt, "");
      filter.longest = std::min(filter.longest, static_cast<unsigned>(text.size()));
      LimitToWholePattern();
      break;
    case PatternKind::OneAsterisk:
      MakePositions(text.substr(0, first), std::nullopt, text.substr(first + 1));
      break;
    case PatternKind::Contains:
      MakePositions("", text.substr(1, text.size() - 2), "");
      break;
    case PatternKind::TwoAsterisks:
      MakePositions(text.substr(0, first), text.substr(first + 1, last - first - 1), text.substr(last + 1));
      break;
    case PatternKind::Sequence:
      MakeSequence();
      break;
    case PatternKind::LetterChoice:
      MakeLetterChoice();
      break;
    case PatternKind::Anagram:
    case PatternKind::AnagramExact:
      MakeAnagram();
      break;
    case PatternKind::Random:
      filter.longest = 0;
      filter.shortest = 1;
      break;
  }
}

void Verifier::Plan::MakePositions(std::string_view prefix, std::optional<std::string_view> middle,
                                   std::string_view suffix) {
  const size_t size = prefix.size() + suffix.size() + (middle ? middle->size() : 0);
  filter.shortest = std::max(filter.shortest, static_cast<unsigned>(size));
  for (const char c : pattern) {
    if (IsLetter(c)) {
      filter.Require(LetterBit(c));
    }
  }
  // Tiles are used up from left to right, and a character that stands for no letter at all concerns only words with
  // other characters: such patterns are tried word by word.
  const auto needsState = [this](char c) {
    return c == '=' || (c != '*' && !IsBoundDigit(c) && LettersOf(c, lists) == 0);
  };
  if (size > kMaxMaskLength || std::any_of(pattern.begin(), pattern.end(), needsState)) {
    return;
  }
  positions.before = static_cast<unsigned>(prefix.size());
  positions.after = static_cast<unsigned>(suffix.size());
  for (size_t i = 0; i < prefix.size(); ++i) {
    AddCharacter(prefix[i], EndPlace{false, static_cast<uint8_t>(i)}, 0);
  }
  for (size_t i = 0; i < suffix.size(); ++i) {
    AddCharacter(suffix[i], EndPlace{true, static_cast<uint8_t>(i)}, 0);
  }
  if (middle) {
    AddMiddle(*middle);
  }
  // One letter anywhere is what the letter sets say already; characters that match whatever there is, letter or not,
  // ask for nothing but a length.
  const bool oneLetter = kind == PatternKind::Contains && pattern.size() == 3 && IsLetter(pattern[1]);
  const bool anything = positions.Trivial() && pattern.find_first_not_of("*?123") == std::string::npos;
  mode = oneLetter || anything ? Mode::FilterDecides : ModeOfPositions();
}

Mode Verifier::Plan::ModeOfPositions() const {
  if (positions.OnlyFixed() && !positions.hasMiddle) {
    return Mode::Ends;
  }
  const bool runAnywhere = positions.before == 0 && positions.after == 0 && positions.run.size != 0;
  return positions.OnlyFixed() && runAnywhere ? Mode::Run : Mode::Positions;
}

void Verifier::Plan::AddMiddle(std::string_view middle) {
  positions.hasMiddle = true;
  positions.middle = static_cast<unsigned>(middle.size());
  if (middle.size() <= ByteRun::kMost && std::all_of(middle.begin(), middle.end(), IsLetter)) {
    std::for_each(middle.begin(), middle.end(), [this](char c) { positions.run.Add(c); });
    return;
  }
  for (size_t i = 0; i < middle.size(); ++i) {
    AddCharacter(middle[i], std::nullopt, static_cast<uint8_t>(i));
  }
}

Symbol& Verifier::Plan::SymbolFor(LetterSet letters) {
  for (Symbol& symbol : positions.symbols) {
    if (symbol.letters.letters == letters) {
      return symbol;
    }
  }
  Symbol& symbol = positions.symbols.emplace_back();
  symbol.single = std::popcount(letters) == 1;
  symbol.letter = static_cast<char>('a' - 1 + std::countr_zero(letters));
  symbol.letters = LetterClass(letters);
  return symbol;
}

void Verifier::Plan::AddCharacter(char patternCharacter, std::optional<EndPlace> end, uint8_t middleOffset) {
  if (IsBoundDigit(patternCharacter)) {
    AddDigit(patternCharacter, end, middleOffset);
    return;
  }
  const LetterSet letters = LettersOf(patternCharacter, lists);
  if (letters == kAllLetters) {
    return;
  }
  if (end && IsLetter(patternCharacter) &&
      (end->fromEnd ? positions.suffix : positions.prefix).Add(end->offset, patternCharacter)) {
    return;
  }
  // A set and its complement share one symbol, the smaller of the two.
  const bool inside = std::popcount(letters) <= 13;
  Symbol& symbol = SymbolFor(inside ? letters : kAllLetters & ~letters);
  Places& places = inside ? symbol.inside : symbol.outside;
  if (end) {
    (end->fromEnd ? places.suffix : places.prefix) |= uint64_t{1} << end->offset;
  } else {
    places.middle.push_back(middleOffset);
  }
}

// The first place of a digit binds it: the ends first, as they are tried first.
void Verifier::Plan::AddDigit(char digit, std::optional<EndPlace> end, uint8_t middleOffset) {
  DigitPlaces& bound = digits[static_cast<size_t>(digit - '1')];
  if (end) {
    if (bound.end) {
      positions.sameEnds.push_back({*bound.end, *end});
    } else {
      bound.end = end;
    }
  } else if (bound.end) {
    positions.sameAsEnd.push_back({*bound.end, middleOffset});
  } else if (bound.middle) {
    positions.sameInMiddle.push_back({*bound.middle, middleOffset});
  } else {
    bound.middle = middleOffset;
  }
}

// Where the pattern says something of every character, only its letters may occur.
void Verifier::Plan::LimitToWholePattern() {
  LetterSet allowed = 0;
  unsigned blanks = 0;
  for (const char c : pattern) {
    if (IsBoundDigit(c)) {
      allowed = kAllLetters;
    } else if (c == '=') {
      allowed |= LetterSetOf(lists.scrabble) & kAllLetters;
      blanks = static_cast<unsigned>(
          std::count_if(lists.scrabble.begin(), lists.scrabble.end(), [](char t) { return t == '-' || t == '?'; }));
    } else {
      allowed |= LettersOf(c, lists);
    }
  }
  if (allowed != kAllLetters) {
    filter.Allow(allowed, blanks);
  }
}

void Verifier::Plan::MakeSequence() {
  const SequenceParts parts = SplitSequence(pattern);
  const LetterSet letters = LetterSetOf(parts.letters);
  if (parts.times == 0 || parts.letters.empty() || (letters & kOtherCharacters) != 0) {
    return;
  }
  filter.Require(letters);
  const auto times = static_cast<unsigned>(parts.times);
  filter.shortest = std::max(filter.shortest, static_cast<unsigned>(parts.letters.size()) + times - 1);
  if (parts.letters.size() > ByteRun::kMost) {
    return;
  }
  AddMiddle(parts.letters);
  positions.minStarts = times;
  positions.maxStarts = parts.orMore ? static_cast<unsigned>(kMaxWordLength) : times;
  mode = Mode::Run;
}

void Verifier::Plan::MakeLetterChoice() {
  std::string letters = pattern.substr(1);
  const bool anyOrder = letters.ends_with('~');
  if (anyOrder) {
    letters.pop_back();
  }
  const LetterSet set = LetterSetOf(letters);
  if ((set & kOtherCharacters) != 0) {
    return;
  }
  filter.Require(set);
  filter.shortest = std::max(filter.shortest, static_cast<unsigned>(letters.size()));
  if (!anyOrder && letters.size() > 1) {
    orderedLetters = letters;
    mode = Mode::OrderedLetters;
    return;
  }
  for (char c = 'a'; c <= 'z'; ++c) {
    const auto needed = static_cast<unsigned>(std::count(letters.begin(), letters.end(), c));
    if (needed > 1) {
      letterCounts.push_back({c, needed, static_cast<unsigned>(kMaxWordLength)});
    }
  }
  mode = letterCounts.empty() ? Mode::FilterDecides : Mode::LetterCounts;
}

void Verifier::Plan::MakeAnagram() {
  const auto size = static_cast<unsigned>(pattern.size());
  const LetterSet set = LetterSetOf(pattern);
  const bool exact = kind == PatternKind::AnagramExact;
  if (exact) {
    filter.longest = std::min(filter.longest, size);
    filter.shortest = std::max(filter.shortest, size);
  }
  if ((set & kOtherCharacters) != 0) {
    return;
  }
  filter.Allow(set);
  if (exact) {
    filter.Require(set);
  }
  for (char c = 'a'; c <= 'z'; ++c) {
    const auto available = static_cast<unsigned>(std::count(pattern.begin(), pattern.end(), c));
    if (available != 0) {
      letterCounts.push_back({c, exact ? available : 0, available});
    }
  }
  mode = Mode::LetterCounts;
}

// Words that hold other characters than letters, and very long ones, are tried by the one definition of matching.
template <class Test>
void Verifier::Plan::Keep(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks, Test test) {
  const uint32_t* starts = lexicon.Starts();
  const uint8_t* lengths = lexicon.Lengths();
  const LetterSet* sets = lexicon.LetterSets();
  const char* text = lexicon.FoldedText();
  KeepAccepted(first, survivors, blocks, [&](WordNumber number) {
    const unsigned length = lengths[number];
    const LetterSet letters = sets[number];
    const char* word = text + starts[number];
    if ((letters & kOtherCharacters) != 0 || length > kMaxMaskLength) [[unlikely]] {
      return wordTest.Accepts({word, length});
    }
    if (length <= 16) [[likely]] {
      return test.template Accepts<1>(word, length, letters);
    }
    return length <= 32 ? test.template Accepts<2>(word, length, letters)
                        : test.template Accepts<4>(word, length, letters);
  });
}

Verifier::Verifier(std::string_view pattern, PatternKind kind, const CharacterLists& lists, unsigned shortest,
                   unsigned longest)
    : plan_(std::make_unique<Plan>(pattern, kind, lists)) {
  plan_->filter.shortest = std::max(shortest, 1u);
  plan_->filter.longest = std::min(longest, static_cast<unsigned>(kMaxWordLength));
  plan_->Make();
}

Verifier::~Verifier() = default;

const WordFilter& Verifier::Filter() const {
  return plan_->filter;
}

void Verifier::Verify(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks) {
  Plan& plan = *plan_;
  const auto keep = [&](auto test) { plan.Keep(lexicon, first, survivors, blocks, test); };
  switch (plan.mode) {
    case Mode::FilterDecides:
      break;
    case Mode::Ends:
      keep(EndsTest{plan.positions});
      break;
    case Mode::Run:
      keep(RunTest{plan.positions});
      break;
    case Mode::Positions:
      keep(PositionsTest{plan.positions});
      break;
    case Mode::OrderedLetters:
      keep(OrderTest{plan.orderedLetters});
      break;
    case Mode::LetterCounts:
      keep(CountsTest{plan.letterCounts, plan.kind != PatternKind::LetterChoice});
      break;
    case Mode::WordByWord:
      KeepAccepted(first, survivors, blocks,
                   [&](WordNumber number) { return plan.wordTest.Accepts(lexicon.FoldedWord(number)); });
      break;
  }
}

void KeepPalindromes(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks) {
  KeepAccepted(first, survivors, blocks, [&](WordNumber number) {
    const std::string_view word = lexicon.Word(number);
    return std::equal(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(word.size() / 2), word.rbegin());
  });
}

}  // namespace quorvane
