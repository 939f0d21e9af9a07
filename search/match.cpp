#include "search/match.h"

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

bool Holds(std::string_view characters, char c) {
  return characters.find(c) != std::string_view::npos;
}

}  // namespace

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
  if (pc >= '1' && pc <= '3') {
    const int code = static_cast<unsigned char>(wc);
    int& binding = digitBinding_[static_cast<size_t>(pc - '1')];
    if (binding < 0) {
      binding = code;
    }
    if (binding == code) {
      return true;
    }
  }
  if (pc == wc || pc == '?') {
    return true;
  }
  switch (pc) {
    case '@':
      return Holds(kVowels, wc);
    case '$':
      return !Holds(kVowels, wc);
    case '\'':
      return Holds(kAscenders, wc);
    case ',':
      return Holds(kDescenders, wc);
    case ':':
      return Holds(kNeitherAscenderNorDescender, wc);
    case '#':
      return InClass(includeClass_, wc);
    case '!':
      return InClass(excludeClass_, wc);
    case '=':
      return UseTile(wc);
    default:
      return false;
  }
}

bool Matcher::UseTile(char wc) {
  for (const char tile : {wc, '-', '?'}) {
    if (const size_t at = scrabbleWork_.find(tile); at != std::string::npos) {
      scrabbleWork_.erase(at, 1);
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

bool FindLettersInOrder(std::string_view word, std::string& letters) {
  const bool anyOrder = letters.ends_with('~');
  if (anyOrder) {
    letters.pop_back();
  }
  std::string work(word);
  size_t from = 0;
  bool result = true;
  for (char& c : letters) {
    const size_t at = work.find(c, anyOrder ? 0 : from);
    if (at != std::string::npos) {
      work[at] = '*';
      c = '&';
      from = at;
    } else {
      result = false;
    }
  }
  return result;
}

SequenceParts SplitSequence(std::string_view pattern) {
  SequenceParts parts;
  parts.letters = pattern.size() > 2 ? pattern.substr(2) : "";
  if (parts.letters.ends_with('>')) {
    parts.letters.pop_back();
    parts.orMore = true;
  }
  parts.numeric = pattern.size() > 1 && IsDigit(pattern[1]);
  parts.times = parts.numeric ? pattern[1] - '0' : 0;
  return parts;
}

WordTest::WordTest(std::string_view pattern, PatternKind kind, const CharacterLists& lists)
    : pattern_(pattern), kind_(kind), matcher_(lists) {
  const size_t first = pattern.find('*');
  const size_t last = pattern.rfind('*');
  switch (kind) {
    case PatternKind::OneAsterisk:
      before_ = first;
      after_ = pattern.size() - first - 1;
      break;
    case PatternKind::TwoAsterisks:
      before_ = first;
      after_ = pattern.size() - last - 1;
      middle_ = last - first - 1;
      break;
    case PatternKind::Contains:
      middle_ = pattern.size() - 2;
      break;
    case PatternKind::AnagramExact:
      sortedLetters_ = SortLetters(pattern);
      break;
    case PatternKind::Sequence: {
      const SequenceParts parts = SplitSequence(pattern);
      sequence_ = parts.letters;
      times_ = static_cast<size_t>(parts.times);
      orMore_ = parts.orMore;
      break;
    }
    default:
      break;
  }
}

bool WordTest::Accepts(std::string_view word) {
  matcher_.StartWord();
  switch (kind_) {
    case PatternKind::NoAsterisk:
      if (word.size() != pattern_.size()) {
        return false;
      }
      for (size_t i = 0; i < word.size(); ++i) {
        matcher_.MatchChar(pattern_[i], word[i]);
      }
      return matcher_.MatchFlag();
    case PatternKind::OneAsterisk:
      return word.size() >= before_ + after_ && AcceptsEnds(word);
    case PatternKind::Contains:
      return word.size() >= middle_ && AcceptsMiddle(word, 0, word.size() - middle_, true);
    case PatternKind::TwoAsterisks:
      return word.size() >= before_ + middle_ + after_ && AcceptsEnds(word) &&
             AcceptsMiddle(word, before_, word.size() - after_ - middle_, false);
    case PatternKind::Anagram:
      return !word.empty() && ContainsAll(word, pattern_);
    case PatternKind::AnagramExact:
      return word.size() == pattern_.size() && SortLetters(word) == sortedLetters_;
    case PatternKind::Sequence:
      return AcceptsSequence(word);
    case PatternKind::LetterChoice: {
      std::string letters = pattern_.substr(1);
      return FindLettersInOrder(word, letters);
    }
    case PatternKind::Random:
      break;
  }
  return false;
}

bool WordTest::AcceptsEnds(std::string_view word) {
  for (size_t i = 0; i < before_; ++i) {
    matcher_.MatchChar(pattern_[i], word[i]);
  }
  for (size_t i = 0; i < after_; ++i) {
    matcher_.MatchChar(pattern_[pattern_.size() - after_ + i], word[word.size() - after_ + i]);
  }
  return matcher_.MatchFlag();
}

// Tries each start from the leftmost. Tiles used by a start that failed stay used. With `clearDigits` each start begins
// with unbound digits, otherwise with the bindings that the ends of the pattern left.
bool WordTest::AcceptsMiddle(std::string_view word, size_t firstStart, size_t lastStart, bool clearDigits) {
  const auto bindings = matcher_.DigitBindings();
  const std::string_view middle = std::string_view(pattern_).substr(before_ + 1, middle_);
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
      return true;
    }
  }
  return false;
}

bool WordTest::AcceptsSequence(std::string_view word) const {
  size_t found = 0;
  if (!sequence_.empty()) {
    for (size_t at = word.find(sequence_); at != std::string_view::npos; at = word.find(sequence_, at + 1)) {
      ++found;
    }
  }
  return found == times_ || (orMore_ && found >= times_);
}

}  // namespace quorvane
