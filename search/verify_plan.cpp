#include "search/verify_plan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

// The letters that a pattern character (no digit, no "=") stands for, asked of the one definition. Each is asked once:
// of a short search that is a good part.
class LetterClasses {
 public:
  explicit LetterClasses(const CharacterLists& lists) : matcher_(lists) {}

  LetterSet Of(char patternCharacter) {
    LetterSet& known = known_[static_cast<unsigned char>(patternCharacter)];
    if (known == 0) {
      known = kAsked;
      for (char c = 'a'; c <= 'z'; ++c) {
        matcher_.RaiseMatchFlag();
        matcher_.MatchChar(patternCharacter, c);
        known |= matcher_.MatchFlag() ? LetterBit(c) : 0;
      }
    }
    return known & kAllLetters;
  }

 private:
  static constexpr LetterSet kAsked = ~kAllLetters;

  Matcher matcher_;
  std::array<LetterSet, 256> known_{};
};

bool IsBoundDigit(char c) {
  return StandsFor(c) == Stands::SameCharacter;
}

bool IsTile(char c) {
  return StandsFor(c) == Stands::Tile;
}

unsigned BlanksIn(std::string_view tiles) {
  return static_cast<unsigned>(
      std::count_if(tiles.begin(), tiles.end(), [](char tile) { return tile == '-' || tile == '?'; }));
}

class PlanMaker {
 public:
  PlanMaker(const PreparedPattern& prepared, const CharacterLists& lists, VerifyPlan& plan)
      : prepared_(prepared),
        lists_(lists),
        classes_(lists),
        plan_(plan),
        filter_(plan.filter),
        positions_(plan.positions) {}
  void Make();

 private:
  void MakePositions();
  void AddMiddle(std::string_view middle);
  VerifyMode ModeOfPositions() const;
  Symbol& SymbolFor(LetterSet letters);
  void AddCharacter(char patternCharacter, std::optional<EndPlace> end, uint8_t middleOffset);
  void AddDigit(char digit, std::optional<EndPlace> end, uint8_t middleOffset);
  void MakeTextQuestion();
  void LimitToWholePattern();
  void MakeSequence();
  void MakeLetterChoice();
  void MakeAnagram();
  void MakeTiles();

  const PreparedPattern& prepared_;
  const CharacterLists& lists_;
  LetterClasses classes_;
  VerifyPlan& plan_;
  WordFilter& filter_;
  Positions& positions_;
  // Where each digit was met first: at the ends, else in the middle.
  struct DigitPlaces {
    std::optional<EndPlace> end;
    std::optional<uint8_t> middle;
  };
  std::array<DigitPlaces, 3> digits_;
};

void PlanMaker::Make() {
  switch (prepared_.kind) {
    case PatternKind::NoAsterisk:
      MakePositions();
      filter_.longest = std::min(filter_.longest, static_cast<unsigned>(prepared_.prefix.size()));
      LimitToWholePattern();
      break;
    case PatternKind::OneAsterisk:
    case PatternKind::Contains:
    case PatternKind::TwoAsterisks:
      MakePositions();
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
    case PatternKind::Tiles:
      MakeTiles();
      break;
    case PatternKind::Random:
      filter_.longest = 0;
      filter_.shortest = 1;
      break;
  }
}

void PlanMaker::MakePositions() {
  const std::string& prefix = prepared_.prefix;
  const std::string& suffix = prepared_.suffix;
  const std::string characters = prefix + prepared_.middle + suffix;
  filter_.shortest = std::max(filter_.shortest, static_cast<unsigned>(characters.size()));
  for (const char c : characters) {
    if (IsLetter(c)) {
      filter_.Require(LetterBit(c));
    }
  }
  const std::string& end = prepared_.kind == PatternKind::NoAsterisk ? prefix : suffix;
  for (size_t i = 0; i < std::min(end.size(), filter_.ending.size()); ++i) {
    const char c = end[end.size() - 1 - i];
    filter_.ending[i] = IsLetter(c) ? c : '\0';
  }
  // Tiles are used up from left to right, and a character that stands for no letter at all concerns only words with
  // other characters: such patterns are tried word by word.
  const auto needsState = [this](char c) { return IsTile(c) || (!IsBoundDigit(c) && classes_.Of(c) == 0); };
  if (characters.size() > kMaxMaskLength || std::any_of(characters.begin(), characters.end(), needsState)) {
    return;
  }
  positions_.before = static_cast<unsigned>(prefix.size());
  positions_.after = static_cast<unsigned>(suffix.size());
  for (size_t i = 0; i < prefix.size(); ++i) {
    AddCharacter(prefix[i], EndPlace{false, static_cast<uint8_t>(i)}, 0);
  }
  for (size_t i = 0; i < suffix.size(); ++i) {
    AddCharacter(suffix[i], EndPlace{true, static_cast<uint8_t>(i)}, 0);
  }
  if (prepared_.HasMiddle()) {
    AddMiddle(prepared_.middle);
  }
  // One letter anywhere is what the bitmaps say already; characters that match whatever there is, letter or not,
  // ask for nothing but a length.
  const bool oneLetter = prepared_.kind == PatternKind::Contains && characters.size() == 1 && IsLetter(characters[0]);
  const bool anything = positions_.Trivial() && std::all_of(characters.begin(), characters.end(), [](char c) {
                          return IsBoundDigit(c) || StandsFor(c) == Stands::AnyCharacter;
                        });
  plan_.mode = oneLetter || anything ? VerifyMode::FilterDecides : ModeOfPositions();
  if (plan_.mode > VerifyMode::FilterDecidesLetters) {
    MakeTextQuestion();
  }
}

// What digits stand for depends on the word: such patterns have no steps.
void PlanMaker::MakeTextQuestion() {
  const std::string& prefix = prepared_.prefix;
  const std::string& suffix = prepared_.suffix;
  const auto anyDigit = [](const std::string& part) { return std::any_of(part.begin(), part.end(), IsBoundDigit); };
  if (anyDigit(prefix) || anyDigit(prepared_.middle) || anyDigit(suffix)) {
    return;
  }
  TextQuestion& question = plan_.text;
  const auto add = [&](const std::string& part) {
    for (size_t i = 0; i < part.size(); ++i) {
      question.Add(classes_.Of(part[i]), i == 0 && !question.steps.empty());
    }
  };
  add(prefix);
  add(prepared_.middle);
  add(suffix);
  question.fromStart = !prefix.empty();
  question.toEnd = !suffix.empty() || prepared_.kind == PatternKind::NoAsterisk;
}

VerifyMode PlanMaker::ModeOfPositions() const {
  if (positions_.OnlyFixed() && !positions_.hasMiddle) {
    const auto asked = std::popcount(positions_.prefix.places) + std::popcount(positions_.suffix.places);
    const auto inEnding = std::count_if(filter_.ending.begin(), filter_.ending.end(), [](char c) { return c != 0; });
    return asked == inEnding ? VerifyMode::FilterDecidesLetters : VerifyMode::Ends;
  }
  const bool runAnywhere = positions_.before == 0 && positions_.after == 0 && positions_.run.size != 0;
  return positions_.OnlyFixed() && runAnywhere ? VerifyMode::Run : VerifyMode::Positions;
}

void PlanMaker::AddMiddle(std::string_view middle) {
  positions_.hasMiddle = true;
  positions_.middle = static_cast<unsigned>(middle.size());
  if (middle.size() <= ByteRun::kMost && std::all_of(middle.begin(), middle.end(), IsLetter)) {
    std::for_each(middle.begin(), middle.end(), [this](char c) { positions_.run.Add(c); });
    return;
  }
  for (size_t i = 0; i < middle.size(); ++i) {
    AddCharacter(middle[i], std::nullopt, static_cast<uint8_t>(i));
  }
}

Symbol& PlanMaker::SymbolFor(LetterSet letters) {
  for (Symbol& symbol : positions_.symbols) {
    if (symbol.letters.letters == letters) {
      return symbol;
    }
  }
  Symbol& symbol = positions_.symbols.emplace_back();
  symbol.single = std::popcount(letters) == 1;
  symbol.letter = static_cast<char>('a' - 1 + std::countr_zero(letters));
  symbol.letters = LetterClass(letters);
  return symbol;
}

void PlanMaker::AddCharacter(char patternCharacter, std::optional<EndPlace> end, uint8_t middleOffset) {
  if (IsBoundDigit(patternCharacter)) {
    AddDigit(patternCharacter, end, middleOffset);
    return;
  }
  const LetterSet letters = classes_.Of(patternCharacter);
  if (letters == kAllLetters) {
    return;
  }
  if (end && IsLetter(patternCharacter) &&
      (end->fromEnd ? positions_.suffix : positions_.prefix).Add(end->offset, patternCharacter)) {
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
void PlanMaker::AddDigit(char digit, std::optional<EndPlace> end, uint8_t middleOffset) {
  DigitPlaces& bound = digits_[static_cast<size_t>(digit - '1')];
  if (end) {
    if (bound.end) {
      positions_.sameEnds.push_back({*bound.end, *end});
    } else {
      bound.end = end;
    }
  } else if (bound.end) {
    positions_.sameAsEnd.push_back({*bound.end, middleOffset});
  } else if (bound.middle) {
    positions_.sameInMiddle.push_back({*bound.middle, middleOffset});
  } else {
    bound.middle = middleOffset;
  }
}

// Where the pattern says something of every character, only its letters may occur.
void PlanMaker::LimitToWholePattern() {
  LetterSet allowed = 0;
  unsigned blanks = 0;
  for (const char c : prepared_.prefix) {
    if (IsBoundDigit(c)) {
      allowed = kAllLetters;
    } else if (IsTile(c)) {
      allowed |= LetterSetOf(lists_.scrabble) & kAllLetters;
      blanks = BlanksIn(lists_.scrabble);
    } else {
      allowed |= classes_.Of(c);
    }
  }
  if (allowed != kAllLetters) {
    filter_.Allow(allowed, blanks);
  }
}

void PlanMaker::MakeSequence() {
  const LetterSet letters = LetterSetOf(prepared_.letters);
  const auto times = static_cast<unsigned>(prepared_.times.value_or(0));
  if (times == 0 || prepared_.letters.empty() || (letters & kOtherCharacters) != 0) {
    return;
  }
  filter_.Require(letters);
  filter_.shortest = std::max(filter_.shortest, static_cast<unsigned>(prepared_.letters.size()) + times - 1);
  if (prepared_.letters.size() > ByteRun::kMost) {
    return;
  }
  AddMiddle(prepared_.letters);
  for (const char c : prepared_.letters) {
    plan_.text.Add(LetterBit(c));
  }
  plan_.text.minTimes = times;
  plan_.text.maxTimes = prepared_.orMore ? 0 : times;
  positions_.minStarts = times;
  positions_.maxStarts = prepared_.orMore ? static_cast<unsigned>(kMaxWordLength) : times;
  plan_.mode = VerifyMode::Run;
}

void PlanMaker::MakeLetterChoice() {
  const std::string& letters = prepared_.letters;
  const LetterSet set = LetterSetOf(letters);
  if ((set & kOtherCharacters) != 0) {
    return;
  }
  filter_.Require(set);
  filter_.shortest = std::max(filter_.shortest, static_cast<unsigned>(letters.size()));
  if (!prepared_.anyOrder && letters.size() > 1) {
    plan_.orderedLetters = letters;
    for (const char c : letters) {
      plan_.text.Add(LetterBit(c), true);
    }
    plan_.mode = VerifyMode::OrderedLetters;
    return;
  }
  for (char c = 'a'; c <= 'z'; ++c) {
    const auto needed = static_cast<unsigned>(std::count(letters.begin(), letters.end(), c));
    if (needed > 1) {
      plan_.letterCounts.push_back({c, needed, static_cast<unsigned>(kMaxWordLength)});
    }
  }
  plan_.mode = plan_.letterCounts.empty() ? VerifyMode::FilterDecides : VerifyMode::LetterCounts;
}

void PlanMaker::MakeAnagram() {
  const std::string& letters = prepared_.letters;
  const auto size = static_cast<unsigned>(letters.size());
  const LetterSet set = LetterSetOf(letters);
  const bool exact = prepared_.kind == PatternKind::AnagramExact;
  if (exact) {
    filter_.longest = std::min(filter_.longest, size);
    filter_.shortest = std::max(filter_.shortest, size);
  }
  if ((set & kOtherCharacters) != 0) {
    return;
  }
  filter_.Allow(set);
  if (exact) {
    filter_.Require(set);
  }
  for (char c = 'a'; c <= 'z'; ++c) {
    const auto available = static_cast<unsigned>(std::count(letters.begin(), letters.end(), c));
    if (available != 0) {
      plan_.letterCounts.push_back({c, exact ? available : 0, available});
    }
  }
  // Each letter once, and as many characters: the letters are all there is to ask.
  const bool once = exact && static_cast<unsigned>(std::popcount(set)) == size;
  plan_.mode = once ? VerifyMode::FilterDecides : VerifyMode::LetterCounts;
}

void PlanMaker::MakeTiles() {
  const std::string& tiles = prepared_.letters;
  filter_.longest = std::min(filter_.longest, static_cast<unsigned>(tiles.size()));
  filter_.Allow(LetterSetOf(tiles) & kAllLetters, BlanksIn(tiles));
  for (char c = 'a'; c <= 'z'; ++c) {
    if (const auto available = static_cast<unsigned>(std::count(tiles.begin(), tiles.end(), c)); available != 0) {
      plan_.letterCounts.push_back({c, 0, available});
    }
  }
  plan_.mode = VerifyMode::Tiles;
}

}  // namespace

VerifyPlan MakeVerifyPlan(const PreparedPattern& prepared, const CharacterLists& lists, unsigned shortest,
                          unsigned longest) {
  VerifyPlan plan;
  plan.filter.shortest = std::max(shortest, 1u);
  plan.filter.longest = std::min(longest, static_cast<unsigned>(kMaxWordLength));
  PlanMaker(prepared, lists, plan).Make();
  return plan;
}

}  // namespace quorvane
