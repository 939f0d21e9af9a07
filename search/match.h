// What a pattern matches, character by character: the one definition. Everything faster is derived from it.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "search/character_lists.h"
#include "search/pattern.h"

namespace quorvane {

// The state of matching one word against a prepared pattern.
class Matcher {
 public:
  explicit Matcher(const CharacterLists& lists);

  // Clears the digits' bindings, gives all tiles back and raises the match flag: before each word.
  void StartWord();
  // The codes of the characters that the digits 1, 2 and 3 stand for; -1: not bound.
  using Bindings = std::array<int, 3>;
  void ClearDigits() { digitBinding_ = {-1, -1, -1}; }
  Bindings DigitBindings() const { return digitBinding_; }
  void RestoreDigits(const Bindings& bindings) { digitBinding_ = bindings; }
  void RaiseMatchFlag() { matchFlag_ = true; }

  // One pattern character against one character of the word, in lower case. Clears the match flag on a mismatch; binds
  // digits to the first character they meet; uses up tiles.
  void MatchChar(char patternCharacter, char wordCharacter);

  bool MatchFlag() const { return matchFlag_; }

 private:
  bool Matches(char patternCharacter, char wordCharacter);
  bool UseTile(char wordCharacter);

  std::string includeClass_;
  std::string excludeClass_;
  std::string tiles_;
  Bindings digitBinding_{-1, -1, -1};
  std::string scrabbleWork_;
  bool matchFlag_ = true;
};

// Whether every character of `a` can be paired with its own occurrence in `b`. A used character of `b` becomes "*".
bool ContainsAll(std::string_view a, std::string_view b);

// Whether `letters` occur in `word` in their order, or in any order when they end with "~". A used character of `word`
// becomes "*". `letters` is used up: its "~" is removed and each found letter becomes "&".
bool FindLettersInOrder(std::string_view word, std::string& letters);

// A prepared pattern against whole words, one by one: the test of each kind in terms of the operations above.
class WordTest {
 public:
  WordTest(std::string_view pattern, PatternKind kind, const CharacterLists& lists);

  // `word` in lower case.
  bool Accepts(std::string_view word);

 private:
  bool AcceptsEnds(std::string_view word);
  bool AcceptsMiddle(std::string_view word, size_t firstStart, size_t lastStart, bool clearDigits);
  bool AcceptsSequence(std::string_view word) const;

  std::string pattern_;
  PatternKind kind_;
  Matcher matcher_;
  size_t before_ = 0;  // Characters ahead of the first asterisk.
  size_t after_ = 0;   // Characters behind the last asterisk.
  size_t middle_ = 0;  // Characters between two asterisks.
  std::string sortedLetters_;
  std::string sequence_;
  size_t times_ = 0;
  bool orMore_ = false;
};

// The parts of a prepared letter sequence "%NXXX>".
struct SequenceParts {
  std::string letters;
  int times = 0;  // 0 when the second character is no digit.
  bool numeric = false;
  bool orMore = false;
};
SequenceParts SplitSequence(std::string_view pattern);

}  // namespace quorvane
