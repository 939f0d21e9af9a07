#include "search/pattern.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr std::string_view kWordPrompt = "Please enter a word selection.";
constexpr std::string_view kAnagramRetry = "Please enter an anagram selection.";
constexpr std::string_view kOneAsterisk =
    "The input word may have just one asterisk, or must be in the format '*xxx*', where xxx is the string lo look for "
    "within a word.";
constexpr std::string_view kAnagramRefusal =
    "When using the Anagram option, you can input only alphabetic characters; no wildcards are allowed.";
constexpr std::string_view kPositionalRefusal =
    "Only one asterisk may be specified when using the positional wildcards (-) and (?). For two asterisks, the word "
    "must be in the format '*xxx*', where xxx is the string lo look for within a word.";
constexpr std::string_view kPositionalWildcards = "$@123#!',:";

PreparedPattern Refuse(std::string_view boxText, std::string_view statusText) {
  PreparedPattern refused;
  refused.pattern = kRefusedPattern;
  refused.boxText = boxText;
  refused.statusText = statusText;
  return refused;
}

}  // namespace

PreparedPattern PreparePattern(std::string_view text, WordType type) {
  const std::string folded = FoldText(text);
  PreparedPattern prepared;
  if (folded.starts_with('%') || folded.starts_with(';')) {
    prepared.kind = folded.starts_with('%') ? PatternKind::Sequence : PatternKind::LetterChoice;
    prepared.pattern = folded;
    return prepared;
  }
  int asterisks = 0;
  bool wildcards = false;
  for (const char c : folded) {
    if (c == '*') {
      const bool second = asterisks == 1 && folded.size() >= 3;
      if (asterisks != 0 && !second) {
        PreparedPattern refused = Refuse(kOneAsterisk, kWordPrompt);
        refused.kind = asterisks == 1 ? PatternKind::OneAsterisk : PatternKind::Contains;
        return refused;
      }
      ++asterisks;
      prepared.pattern += c;
    } else if (c == '?' || c == '-') {
      wildcards = true;
      prepared.pattern += '?';
    } else {
      wildcards = wildcards || kPositionalWildcards.find(c) != std::string_view::npos;
      prepared.pattern += c;
    }
  }
  if (IsAnagram(type)) {
    if (asterisks == 0 && !wildcards) {
      prepared.kind = type == WordType::AnagramExact ? PatternKind::AnagramExact : PatternKind::Anagram;
      return prepared;
    }
    prepared = Refuse(kAnagramRefusal, kAnagramRetry);
  }
  // The count of asterisks never passes 2 above; the rule is held here all the same.
  if (asterisks >= 3 && wildcards) {
    return Refuse(kPositionalRefusal, kWordPrompt);
  }
  if (asterisks == 2) {
    const bool contains = prepared.pattern.starts_with('*') && prepared.pattern.ends_with('*');
    prepared.kind = contains ? PatternKind::Contains : PatternKind::TwoAsterisks;
  } else {
    prepared.kind = asterisks == 1 ? PatternKind::OneAsterisk : PatternKind::NoAsterisk;
  }
  return prepared;
}

SortedLettersResult SortedLetters(std::string_view pattern) {
  if (pattern.size() > kMaxSortedLetters) {
    return {"", MakeRunTimeError(kErrorSubscriptOutOfRange)};
  }
  std::string letters(pattern);
  std::sort(letters.begin(), letters.end(),
            [](char a, char b) { return static_cast<unsigned char>(a) > static_cast<unsigned char>(b); });
  return {letters, std::nullopt};
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
  std::string letters = SortLetters(text.substr(0, kMaxSortedLetters));
  letters.erase(std::unique(letters.begin(), letters.end()), letters.end());
  return letters;
}

std::string FirstLetters(std::string_view pattern, PatternKind kind, const CharacterLists& lists) {
  std::string set = "&";
  const char first = pattern.empty() ? '\0' : pattern.front();
  if (IsLetter(first)) {
    set = Upper(first);
  }
  if (kind == PatternKind::Anagram || kind == PatternKind::AnagramExact) {
    set = SortList(pattern);
  }
  if (first == '#') {
    set = SortList(BracketForm(lists.include));
  } else if (first == '=') {
    set = SortList(BracketForm(lists.scrabble));
  } else if (const Wildcard* wildcard = FindWildcard(first); wildcard != nullptr && !wildcard->letters.empty()) {
    set = wildcard->letters;
  }
  if (set.starts_with('-') || set.starts_with('?')) {
    set = "&";
  }
  return UpperText(set);
}

}  // namespace quorvane
