// The one table of the pattern language's special characters: what each stands for, what the status line says of it
// and what the summary says.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvane {

inline constexpr std::string_view kVowels = "aeiou";
inline constexpr std::string_view kConsonants = "bcdfghjklmnpqrstvwxyz";
inline constexpr std::string_view kAscenders = "bdfhklt";
inline constexpr std::string_view kDescenders = "gjpqy";
inline constexpr std::string_view kNeitherAscenderNorDescender = "aceimnorsuvwxz";

struct Wildcard {
  char character;
  // What the status line says when it was typed last; for "#", "!" and "=" the list in brackets follows.
  std::string_view statusText;
  // The letters it stands for, which are the initials of the words that a pattern beginning with it can match; empty:
  // any, or those of a list.
  std::string_view letters;
};

// The special characters of a plain pattern.
std::span<const Wildcard> Wildcards();
// The entry of a character, or null when it is none.
const Wildcard* FindWildcard(char character);

// A row of the wildcard summary: what is typed and what it means.
struct WildcardSummaryRow {
  std::string_view typed;
  std::string_view meaning;
};
std::span<const WildcardSummaryRow> WildcardSummary();

}  // namespace quorvane
