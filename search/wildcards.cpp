#include "search/wildcards.h"

#include <algorithm>
#include <array>

namespace quorvane {
namespace {

using enum Stands;

constexpr std::array kWildcards = {
    Wildcard{.character = '?',
             .stands = AnyCharacter,
             .statusText = "'?' stands for any character",
             .brief = "? or - any character",
             .summary = {"- or ?", "any letter", 1}},
    Wildcard{.character = '-', .stands = AnyCharacter, .statusText = "'-' stands for any character"},
    Wildcard{.character = '*',
             .stands = AnyNumber,
             .statusText = "'*' stands for zero or more characters",
             .brief = "* any number of them (at most two)",
             .summary = {"*", "zero or more letters", 2}},
    Wildcard{.character = '@',
             .stands = Letters,
             .letters = "aeiou",
             .statusText = "'@' stands for any vowel",
             .brief = "@ vowel",
             .summary = {"@", "any vowel", 3}},
    Wildcard{.character = '$',
             .stands = Letters,
             .letters = "bcdfghjklmnpqrstvwxyz",
             .otherCharacters = true,
             .statusText = "'$' stands for any consonant",
             .brief = "$ consonant",
             .summary = {"$", "any consonant", 4}},
    Wildcard{.character = '\'',
             .stands = Letters,
             .letters = "bdfhklt",
             .statusText = "' stands for any letter with an ascender [bdfhklt]",
             .brief = "' ascender",
             .summary = {"'", "any with ascender", 9}},
    Wildcard{.character = ',',
             .stands = Letters,
             .letters = "gjpqy",
             .statusText = "',' stands for any letter with a descender [gjpqy]",
             .brief = ", descender",
             .summary = {",", "any with descender", 11}},
    Wildcard{.character = ':',
             .stands = Letters,
             .letters = "aceimnorsuvwxz",
             .statusText = "':' stands for any letter with no ascender/descender [aceimnorsuvwxz]",
             .brief = ": neither",
             .summary = {":", "any with no asc/desc", 10}},
    Wildcard{.character = '1',
             .stands = SameCharacter,
             .statusText = "'1' stands for any character; every '1' denotes the same character",
             .brief = "1 2 3 repeated characters",
             .summary = {"1 2 3", "repeated characters", 8}},
    Wildcard{.character = '2',
             .stands = SameCharacter,
             .statusText = "'2' stands for any character; every '2' denotes the same character"},
    Wildcard{.character = '3',
             .stands = SameCharacter,
             .statusText = "'3' stands for any character; every '3' denotes the same character"},
    Wildcard{.character = '#',
             .stands = IncludeList,
             .statusText = "'#' currently stands for including any of ",
             .brief = "# ! = the lists of --include, --exclude and --rack",
             .summary = {"#", "any in Inclusion List", 5}},
    Wildcard{.character = '!',
             .stands = ExcludeList,
             .statusText = "'!' currently stands for excluding any of ",
             .summary = {"!", "any not in Exclusion List", 6}},
    Wildcard{.character = '=',
             .stands = Tile,
             .statusText = "'=' currently stands for exactly any of ",
             .summary = {"=", "any in Scrabble List", 7}},
    Wildcard{.character = '~', .stands = Mode, .brief = "~N random words", .summary = {"~n", "'n' random words", 12}},
    Wildcard{.character = '%',
             .stands = Mode,
             .brief = "%Nxx> letter sequences",
             .summary = {"%nx>", "'n' letter sequences 'x'", 13}},
    Wildcard{.character = ';',
             .stands = Mode,
             .brief = ";xx letters in order (;xx~ in any)",
             .summary = {";", "letters in a word", 14}},
};

static_assert(std::all_of(kWildcards.begin(), kWildcards.end(),
                          [](const Wildcard& wildcard) {
                            const size_t listed = wildcard.statusText.find('[');
                            return listed == std::string_view::npos ||
                                   wildcard.statusText.substr(listed + 1, wildcard.letters.size()) == wildcard.letters;
                          }),
              "the letters that a status text lists are those it stands for");

constexpr auto kSummary = [] {
  constexpr auto speaks = [](const Wildcard& wildcard) { return !wildcard.summary.typed.empty(); };
  std::array<WildcardSummaryRow, std::count_if(kWildcards.begin(), kWildcards.end(), speaks)> summary{};
  size_t next = 0;
  for (const Wildcard& wildcard : kWildcards) {
    if (speaks(wildcard)) {
      summary[next++] = wildcard.summary;
    }
  }
  std::sort(summary.begin(), summary.end(), [](const auto& a, const auto& b) { return a.place < b.place; });
  return summary;
}();

}  // namespace

constexpr std::array<Stands, 256> kStandsFor = [] {
  std::array<Stands, 256> stands{};
  for (const Wildcard& wildcard : kWildcards) {
    stands[static_cast<unsigned char>(wildcard.character)] = wildcard.stands;
  }
  return stands;
}();

bool Wildcard::MatchesLetterClass(char wordCharacter) const {
  return letters.find(wordCharacter) != std::string_view::npos ||
         (otherCharacters && !(wordCharacter >= 'a' && wordCharacter <= 'z'));
}

std::span<const Wildcard> Wildcards() {
  return kWildcards;
}

const Wildcard* FindWildcard(char character) {
  const auto* const row = std::find_if(kWildcards.begin(), kWildcards.end(), [character](const Wildcard& wildcard) {
    return wildcard.character == character;
  });
  return row == kWildcards.end() ? nullptr : row;
}

std::span<const WildcardSummaryRow> WildcardSummary() {
  return kSummary;
}

}  // namespace quorvane
