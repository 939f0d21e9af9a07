// The one table of the pattern language's special characters: what each stands for and what is said of it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quorvane {

// What a character of a pattern stands for. It decides where a special character may stand and what it forbids.
enum class Stands : uint8_t {
  Itself,  // No special character.
  AnyCharacter,
  AnyNumber,      // Of any characters.
  Letters,        // One of the row's letters.
  IncludeList,    // One of a list's characters.
  ExcludeList,    // None of a list's characters.
  Tile,           // One of the Scrabble list, used up.
  SameCharacter,  // The same character wherever the digit stands.
  Mode,           // For nothing: as the first character it chooses a special mode.
};

// A row of the wildcard summary: what is typed and what it means.
struct WildcardSummaryRow {
  std::string_view typed{};
  std::string_view meaning{};
  int place = 0;  // Rows stand in ascending order.
};

struct Wildcard {
  char character = 0;
  Stands stands = Stands::Itself;
  // Of Stands::Letters. They are the initials of the words that a pattern beginning with the character can match.
  std::string_view letters{};
  bool otherCharacters = false;  // Beside the letters every character but "a" to "z".
  // What the status line says when it was typed last; of a list the list in brackets follows. Modes have none.
  std::string_view statusText{};
  std::string_view brief{};      // In a list of all; empty where another row's speaks of this one, too.
  WildcardSummaryRow summary{};  // Nothing is typed where another row's speaks of this one, too.

  constexpr bool InPlainPattern() const { return stands != Stands::Mode; }
  // Whether the preparation takes it for a wildcard; a tile passes as a letter there.
  constexpr bool Positional() const {
    return InPlainPattern() && stands != Stands::AnyNumber && stands != Stands::Tile;
  }
  // Whether the input check refuses it in an anagram.
  constexpr bool ForbidsAnagrams() const { return InPlainPattern(); }
  bool MatchesLetterClass(char wordCharacter) const;  // Of Stands::Letters.
};

// All special characters; the modes come last.
std::span<const Wildcard> Wildcards();
// The entry of a character, or null when it is none.
const Wildcard* FindWildcard(char character);

extern const std::array<Stands, 256> kStandsFor;  // By character.
inline Stands StandsFor(char character) {
  return kStandsFor[static_cast<unsigned char>(character)];
}

std::span<const WildcardSummaryRow> WildcardSummary();

}  // namespace quorvane
