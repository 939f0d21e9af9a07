// What a prepared pattern demands of a word, worked out once when the search starts: the filter that every word must
// pass and the test of what the filter leaves. Classes come from `Matcher::MatchChar`, asked for every letter: that is
// the one definition of matching.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "search/byte_masks.h"
#include "search/filter.h"
#include "search/match.h"

namespace quorvane {

// A test of a word by masks speaks of its first 64 characters; longer words are tested one character at a time.
inline constexpr unsigned kMaxMaskLength = 64;

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

// A pattern as steps from character to character of a word of letters, for a pass over the text.
struct TextQuestion {
  struct Step {
    LetterSet letters;
    bool later;  // Other characters may stand in front.
  };
  std::vector<Step> steps;  // None: the pattern can't be said so.
  bool fromStart = false;   // The first step is the word's first character.
  bool toEnd = false;       // The last step is the word's last character.
  // At how many places of the word the last step must arrive; a maximum of 0 is none.
  unsigned minTimes = 1;
  unsigned maxTimes = 0;

  void Add(LetterSet letters, bool later = false) { steps.push_back({letters, later}); }
};

// Which test decides; the dearer ones come later.
enum class VerifyMode {
  FilterDecides,
  FilterDecidesLetters,  // Of words of letters; those with other characters are tried by themselves.
  Ends,                  // Letters at the ends alone.
  LetterCounts,
  Tiles,  // What the letter counts do not allow takes a blank of the filter's each.
  OrderedLetters,
  Run,        // A run of letters alone.
  Positions,  // Everything else with positions.
  WordByWord,
};

// The plan of one search.
struct VerifyPlan {
  WordFilter filter;
  VerifyMode mode = VerifyMode::WordByWord;
  Positions positions;
  TextQuestion text;
  std::string orderedLetters;
  std::vector<LetterCount> letterCounts;
};

// `shortest` and `longest` are the length range of the search.
VerifyPlan MakeVerifyPlan(const PreparedPattern& prepared, const CharacterLists& lists, unsigned shortest,
                          unsigned longest);

}  // namespace quorvane
