#include "search/match.h"

#include <algorithm>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {

Matcher::Matcher(const CharacterLists& lists)
    : includeClass_(BracketForm(lists.include)),
      excludeClass_("[!~" + BracketForm(lists.exclude).substr(1)),
      tiles_(FoldText(lists.scrabble)) {
  StartWord();
}

void Matcher::StartWord() {
  ClearDigits();
  scrabbleWork_ = tiles_;
  matchFlag_ = true;
}

void Matcher::MatchChar(char patternCharacter, char wordCharacter) {
  if (!Matches(patternCharacter, wordCharacter)) {
    matchFlag_ = false;
  }
}

bool Matcher::Matches(char pc, char wc) {
  const Stands stands = StandsFor(pc);
  if (stands == Stands::SameCharacter && MatchesBinding(pc, wc)) {
    return true;
  }
  if (pc == wc) {
    return true;
  }
  switch (stands) {
    case Stands::AnyCharacter:
      return true;
    case Stands::Letters:
      return FindWildcard(pc)->MatchesLetterClass(wc);
    case Stands::IncludeList:
      return InClass(includeClass_, wc);
    case Stands::ExcludeList:
      return InClass(excludeClass_, wc);
    case Stands::Tile:
      return TakeTile(scrabbleWork_, wc);
    case Stands::Itself:
    case Stands::AnyNumber:
    case Stands::SameCharacter:
    case Stands::Mode:
      break;
  }
  return false;
}

bool Matcher::MatchesBinding(char digit, char wc) {
  const int code = static_cast<unsigned char>(wc);
  int& binding = digitBinding_[static_cast<size_t>(digit - '1')];
  if (binding < 0) {
    binding = code;
  }
  return binding == code;
}

bool TakeTile(std::string& rack, char wordCharacter) {
  for (const char tile : {wordCharacter, '-', '?'}) {
    if (const size_t at = rack.find(tile); at != std::string::npos) {
      rack.erase(at, 1);
      return true;
    }
  }
  return false;
}

bool ContainsAll(std::string_view a, std::string_view b) {
  std::string work(b);
  bool result = true;
  for (const char c : a) {
    const size_t at = work.find(c);
    if (at != std::string::npos) {
      work[at] = '*';
    } else {
      result = false;
    }
  }
  return result;
}

bool FindLetters(std::string_view word, std::string_view letters, bool anyOrder) {
  std::string work(word);
  size_t from = 0;
  bool result = true;
  for (const char c : letters) {
    const size_t at = work.find(c, anyOrder ? 0 : from);
    if (at != std::string::npos) {
      work[at] = '*';
      from = at;
    } else {
      result = false;
    }
  }
  return result;
}

WordTest::WordTest(const PreparedPattern& prepared, const CharacterLists& lists)
    : prepared_(prepared), matcher_(lists), sortedLetters_(SortLetters(prepared.letters)) {}

bool WordTest::Accepts(std::string_view word) {
  matcher_.StartWord();
  const size_t ends = prepared_.prefix.size() + prepared_.suffix.size();
  const size_t middle = prepared_.middle.size();
  switch (prepared_.kind) {
    case PatternKind::NoAsterisk:
      return word.size() == ends && AcceptsEnds(word);
    case PatternKind::OneAsterisk:
      return word.size() >= ends && AcceptsEnds(word);
    case PatternKind::Contains:
      return word.size() >= middle && AcceptsMiddle(word, 0, word.size() - middle, true);
    case PatternKind::TwoAsterisks:
      return word.size() >= ends + middle && AcceptsEnds(word) &&
             AcceptsMiddle(word, prepared_.prefix.size(), word.size() - prepared_.suffix.size() - middle, false);
    case PatternKind::Anagram:
      return !word.empty() && ContainsAll(word, prepared_.letters);
    case PatternKind::AnagramExact:
      return word.size() == sortedLetters_.size() && SortLetters(word) == sortedLetters_;
    case PatternKind::Sequence:
      return AcceptsSequence(word);
    case PatternKind::LetterChoice:
      return FindLetters(word, prepared_.letters, prepared_.anyOrder);
    case PatternKind::Tiles:
      return AcceptsTiles(word);
    case PatternKind::Random:
      break;
  }
  return false;
}

bool WordTest::AcceptsTiles(std::string_view word) const {
  std::string rack = prepared_.letters;
  return std::all_of(word.begin(), word.end(), [&rack](char c) { return TakeTile(rack, c); });
}

bool WordTest::AcceptsEnds(std::string_view word) {
  const std::string& prefix = prepared_.prefix;
  const std::string& suffix = prepared_.suffix;
  for (size_t i = 0; i < prefix.size() && matcher_.MatchFlag(); ++i) {
    matcher_.MatchChar(prefix[i], word[i]);
  }
  for (size_t i = 0; i < suffix.size() && matcher_.MatchFlag(); ++i) {
    matcher_.MatchChar(suffix[i], word[word.size() - suffix.size() + i]);
  }
  return matcher_.MatchFlag();
}

// Tries each start from the leftmost. Tiles used by a start that failed stay used. With `clearDigits` each start begins
// with unbound digits, otherwise with the bindings that the ends of the pattern left.
bool WordTest::AcceptsMiddle(std::string_view word, size_t firstStart, size_t lastStart, bool clearDigits) {
  const auto bindings = matcher_.DigitBindings();
  const std::string& middle = prepared_.middle;
  for (size_t start = firstStart; start <= lastStart; ++start) {
    if (clearDigits) {
      matcher_.ClearDigits();
    } else {
      matcher_.RestoreDigits(bindings);
    }
    matcher_.RaiseMatchFlag();
    for (size_t i = 0; i < middle.size() && matcher_.MatchFlag(); ++i) {
      matcher_.MatchChar(middle[i], word[start + i]);
    }
    if (matcher_.MatchFlag()) {
      middleStart_ = start;
      return true;
    }
  }
  return false;
}

bool WordTest::AcceptsSequence(std::string_view word) const {
  const std::string& letters = prepared_.letters;
  int found = 0;
  if (!letters.empty()) {
    for (size_t at = word.find(letters); at != std::string_view::npos; at = word.find(letters, at + 1)) {
      ++found;
    }
  }
  const int times = prepared_.times.value_or(0);
  return found == times || (prepared_.orMore && found >= times);
}

}  // namespace quorvane
