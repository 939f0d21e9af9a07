#include "search/pattern.h"

#include <algorithm>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr std::string_view kAnagramRetry = "Please enter an anagram selection.";
constexpr std::string_view kOneAsterisk =
    "The input word may have just one asterisk, or must be in the format '*xxx*', where xxx is the string lo look for "
    "within a word.";
constexpr std::string_view kAnagramRefusal =
    "When using the Anagram option, you can input only alphabetic characters; no wildcards are allowed.";
constexpr std::string_view kPositionalRefusal =
    "Only one asterisk may be specified when using the positional wildcards (-) and (?). For two asterisks, the word "
    "must be in the format '*xxx*', where xxx is the string lo look for within a word.";
constexpr size_t kMaxSortedList = 60;

PatternRefusal Refusal(std::string_view boxText, std::string_view statusText) {
  return {std::string(boxText), std::string(statusText)};
}

PreparedPattern PrepareSequence(const std::string& folded) {
  const SequenceParts parts = SplitSequence(folded);
  PreparedPattern prepared;
  prepared.text = folded;
  prepared.kind = PatternKind::Sequence;
  prepared.letters = parts.letters;
  prepared.times = parts.times;
  prepared.orMore = parts.orMore;
  return prepared;
}

PreparedPattern PrepareLetterChoice(const std::string& folded) {
  PreparedPattern prepared;
  prepared.text = folded;
  prepared.kind = PatternKind::LetterChoice;
  prepared.letters = folded.substr(1);
  prepared.anyOrder = prepared.letters.ends_with('~');
  if (prepared.anyOrder) {
    prepared.letters.pop_back();
  }
  return prepared;
}

// Cuts the text at its asterisks.
void SetParts(PreparedPattern& prepared) {
  const std::string& text = prepared.text;
  const size_t first = std::min(text.find('*'), text.size());
  prepared.prefix = text.substr(0, first);
  if (first == text.size()) {
    return;
  }
  const size_t last = text.rfind('*');
  prepared.suffix = text.substr(last + 1);
  if (last > first) {
    prepared.middle = text.substr(first + 1, last - first - 1);
  }
}

// What the characters of a plain text say.
struct Plain {
  std::string normalised;
  int asterisks = 0;
  bool wildcards = false;
  bool refused = false;  // An asterisk too many.
};

Plain ReadPlain(const std::string& folded) {
  Plain plain;
  for (const char c : folded) {
    const Wildcard* wildcard = FindWildcard(c);
    plain.normalised += StandsFor(c) == Stands::AnyCharacter ? '?' : c;
    plain.wildcards = plain.wildcards || (wildcard != nullptr && wildcard->Positional());
    if (StandsFor(c) == Stands::AnyNumber && !plain.refused) {
      const bool second = plain.asterisks == 1 && folded.size() >= 3;
      plain.refused = plain.asterisks != 0 && !second;
      plain.asterisks += plain.refused ? 0 : 1;
    }
  }
  return plain;
}

}  // namespace

int RandomCount(std::string_view text) {
  int count = 1;
  ParseInteger(text.substr(1), count);
  return count;
}

SequenceParts SplitSequence(std::string_view text) {
  SequenceParts parts;
  parts.letters = text.size() > 2 ? text.substr(2) : "";
  if (parts.letters.ends_with('>')) {
    parts.letters.pop_back();
    parts.orMore = true;
  }
  if (text.size() > 1 && IsDigit(text[1])) {
    parts.times = text[1] - '0';
  }
  return parts;
}

PreparedPattern PreparePattern(std::string_view text, WordType type) {
  const std::string folded = FoldText(text);
  if (folded.starts_with('%')) {
    return PrepareSequence(folded);
  }
  if (folded.starts_with(';')) {
    return PrepareLetterChoice(folded);
  }
  Plain plain = ReadPlain(folded);
  PreparedPattern prepared;
  prepared.text = std::move(plain.normalised);
  if (plain.refused) {
    prepared.kind = plain.asterisks == 1 ? PatternKind::OneAsterisk : PatternKind::Contains;
    prepared.refusal = Refusal(kOneAsterisk, kWordPrompt);
    return prepared;
  }
  if (prepared.text.starts_with('~')) {
    prepared.randomCount = RandomCount(prepared.text);
  }
  if (IsAnagram(type)) {
    if (plain.asterisks == 0 && !plain.wildcards) {
      prepared.kind = type == WordType::AnagramExact ? PatternKind::AnagramExact : PatternKind::Anagram;
      prepared.letters = prepared.text;
      return prepared;
    }
    prepared.refusal = Refusal(kAnagramRefusal, kAnagramRetry);
  }
  // The count of asterisks never passes 2 above; the rule is held here all the same.
  if (plain.asterisks >= 3 && plain.wildcards) {
    prepared.refusal = Refusal(kPositionalRefusal, kWordPrompt);
    return prepared;
  }
  if (plain.asterisks == 2) {
    const bool contains = prepared.text.starts_with('*') && prepared.text.ends_with('*');
    prepared.kind = contains || prepared.refusal ? PatternKind::Contains : PatternKind::TwoAsterisks;
  } else {
    prepared.kind = plain.asterisks == 1 ? PatternKind::OneAsterisk : PatternKind::NoAsterisk;
  }
  SetParts(prepared);
  return prepared;
}

std::string SortLetters(std::string_view text) {
  std::string letters(text);
  std::sort(letters.begin(), letters.end(),
            [](char a, char b) { return static_cast<unsigned char>(a) < static_cast<unsigned char>(b); });
  return letters;
}

std::string SortList(std::string_view text) {
  if (text.size() >= 2 && text.front() == '[' && text.back() == ']') {
    text = text.substr(1, text.size() - 2);
  }
  std::string letters = SortLetters(text.substr(0, kMaxSortedList));
  letters.erase(std::unique(letters.begin(), letters.end()), letters.end());
  return letters;
}

Initials FirstLetters(const PreparedPattern& prepared, const CharacterLists& lists) {
  const char first = prepared.Empty() ? '\0' : prepared.text.front();
  const Stands stands = StandsFor(first);
  std::string letters;
  if (stands == Stands::IncludeList) {
    letters = SortList(BracketForm(lists.include));
  } else if (stands == Stands::Tile) {
    letters = SortList(BracketForm(lists.scrabble));
  } else if (stands == Stands::Letters) {
    letters = FindWildcard(first)->letters;
  } else if (prepared.kind == PatternKind::Anagram || prepared.kind == PatternKind::AnagramExact) {
    letters = SortList(prepared.letters);
  } else if (IsLetter(first)) {
    letters = first;
  } else {
    return {true, ""};
  }
  // Lowest of all characters, a blank tile comes first.
  const bool blank = !letters.empty() && StandsFor(letters.front()) == Stands::AnyCharacter;
  return blank ? Initials{true, ""} : Initials{false, UpperText(letters)};
}

}  // namespace quorvane
