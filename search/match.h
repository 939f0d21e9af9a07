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
  bool MatchesBinding(char digit, char wordCharacter);

  std::string includeClass_;
  std::string excludeClass_;
  std::string tiles_;
  Bindings digitBinding_{-1, -1, -1};
  std::string scrabbleWork_;
  bool matchFlag_ = true;
};

// Takes the tile of a character, else a blank one, out of the rack; false when it has neither.
bool TakeTile(std::string& rack, char wordCharacter);

// Whether every character of `a` can be paired with its own occurrence in `b`. A used character of `b` becomes "*".
bool ContainsAll(std::string_view a, std::string_view b);

// Whether `letters` occur in `word` in their order, or in any order. A used character of `word` becomes "*".
bool FindLetters(std::string_view word, std::string_view letters, bool anyOrder);

// A prepared pattern against whole words, one by one: the test of each kind in terms of the operations above.
class WordTest {
 public:
  WordTest(const PreparedPattern& prepared, const CharacterLists& lists);

  // `word` in lower case.
  bool Accepts(std::string_view word);
  // Where in the word accepted last the pattern's middle stands, for the kinds that have one: at the leftmost place.
  size_t MiddleStart() const { return middleStart_; }

 private:
  bool AcceptsEnds(std::string_view word);
  bool AcceptsMiddle(std::string_view word, size_t firstStart, size_t lastStart, bool clearDigits);
  bool AcceptsSequence(std::string_view word) const;
  bool AcceptsTiles(std::string_view word) const;

  const PreparedPattern prepared_;
  Matcher matcher_;
  const std::string sortedLetters_;  // Of an anagram.
  size_t middleStart_ = 0;
};

}  // namespace quorvane
