#include "search/wildcards.h"

#include <algorithm>
#include <array>

namespace quorvane {
namespace {

constexpr std::array kWildcards = {
    Wildcard{'*', "'*' stands for zero or more characters", ""},
    Wildcard{'?', "'?' stands for any character", ""},
    Wildcard{'-', "'-' stands for any character", ""},
    Wildcard{'@', "'@' stands for any vowel", kVowels},
    Wildcard{'$', "'$' stands for any consonant", kConsonants},
    Wildcard{'\'', "' stands for any letter with an ascender [bdfhklt]", kAscenders},
    Wildcard{',', "',' stands for any letter with a descender [gjpqy]", kDescenders},
    Wildcard{':', "':' stands for any letter with no ascender/descender [aceimnorsuvwxz]",
             kNeitherAscenderNorDescender},
    Wildcard{'#', "'#' currently stands for including any of ", ""},
    Wildcard{'!', "'!' currently stands for excluding any of ", ""},
    Wildcard{'=', "'=' currently stands for exactly any of ", ""},
    Wildcard{'1', "'1' stands for any character; every '1' denotes the same character", ""},
    Wildcard{'2', "'2' stands for any character; every '2' denotes the same character", ""},
    Wildcard{'3', "'3' stands for any character; every '3' denotes the same character", ""},
};

static_assert(std::none_of(kConsonants.begin(), kConsonants.end(),
                           [](char c) { return kVowels.find(c) != std::string_view::npos; }) &&
              kVowels.size() + kConsonants.size() == 26);
static_assert(std::all_of(kWildcards.begin(), kWildcards.end(),
                          [](const Wildcard& wildcard) {
                            const size_t listed = wildcard.statusText.find('[');
                            return listed == std::string_view::npos ||
                                   wildcard.statusText.substr(listed + 1, wildcard.letters.size()) == wildcard.letters;
                          }),
              "the letters that a status text lists are those it stands for");

constexpr std::array kSummary = {
    WildcardSummaryRow{"- or ?", "any letter"},
    WildcardSummaryRow{"*", "zero or more letters"},
    WildcardSummaryRow{"@", "any vowel"},
    WildcardSummaryRow{"$", "any consonant"},
    WildcardSummaryRow{"#", "any in Inclusion List"},
    WildcardSummaryRow{"!", "any not in Exclusion List"},
    WildcardSummaryRow{"=", "any in Scrabble List"},
    WildcardSummaryRow{"1 2 3", "repeated characters"},
    WildcardSummaryRow{"'", "any with ascender"},
    WildcardSummaryRow{":", "any with no asc/desc"},
    WildcardSummaryRow{",", "any with descender"},
    WildcardSummaryRow{"~n", "'n' random words"},
    WildcardSummaryRow{"%nx>", "'n' letter sequences 'x'"},
    WildcardSummaryRow{";", "letters in a word"},
};

}  // namespace

std::span<const Wildcard> Wildcards() {
  return kWildcards;
}

const Wildcard* FindWildcard(char character) {
  for (const Wildcard& wildcard : kWildcards) {
    if (wildcard.character == character) {
      return &wildcard;
    }
  }
  return nullptr;
}

std::span<const WildcardSummaryRow> WildcardSummary() {
  return kSummary;
}

}  // namespace quorvane
