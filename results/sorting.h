// Sorting by length.
#pragma once

#include <span>

#include "lexicon/lexicon.h"
#include "search/emit.h"

namespace quorvane {

// The words in the order of their lengths, words of one length in the order given (a counting sort: one pass to count,
// one to place). `sorted` is overwritten and keeps its memory.
void SortByLength(const Lexicon& lexicon, std::span<const WordNumber> words, bool longestFirst, FoundNumbers& sorted);

}  // namespace quorvane
