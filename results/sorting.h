// Sorting by length.
#pragma once

#include <span>
#include <string_view>

#include "lexicon/lexicon.h"
#include "search/emit.h"

namespace quorvane {

// What the status line says before a sort into each order; descending length is announced first, in bold.
inline constexpr std::string_view kSortingAlphabetic = "Sorting into alphabetic order ...";
inline constexpr std::string_view kSortingShortest = "Sorting into word-length order (shortest -> longest) ...";
inline constexpr std::string_view kSortingLongest = "Sorting into word-length order (longest -> shortest) ...";
inline constexpr std::string_view kDescendingAnnouncement =
    "Words will be displayed in descending length order (Longest to Shortest)";

// The words in the order of their lengths, words of one length in the order given (a counting sort: one pass to count,
// one to place). `sorted` is overwritten and keeps its memory.
void SortByLength(const Lexicon& lexicon, std::span<const WordNumber> words, bool longestFirst, FoundNumbers& sorted);

}  // namespace quorvane
