// The steps from a text to the bitmaps of its words' letters, for one width of vectors.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/vector_width.h"
#include "lexicon/letter_set.h"

namespace quorvane {

struct LoadKernel {
  // Characters of a word whose letters are collected at once.
  static constexpr size_t kHead = 16;
  // Words that are worked on at once, at most.
  static constexpr size_t kWordsAtOnce = 16;

  // Bytes of text, or lengths, that are looked at together.
  static constexpr size_t kBlock = 64;
  // From so far ahead text is fetched while this much is worked on.
  static constexpr size_t kFetchAhead = size_t{1} << 14;

  // What is noticed of a part of the text on the way.
  struct Facts {
    bool mayFold = false;     // A byte may change in lower case.
    bool bareFeed = false;    // A line feed stands without a CR in front of it...
    bool pairedFeed = false;  // ...or with one.
    bool otherFirst = false;  // A line that starts here begins with another character than the one given.
  };

  // Writes for each line feed from `text + from` up to `text + end` where the line behind it starts, to `starts` and up
  // to 16 entries behind the last. Gives their number, and adds to `facts`. The text is read up to the next multiple of
  // kBlock from `from` on.
  size_t (*findLines)(const char* text, size_t from, size_t end, char first, uint32_t* starts, Facts& facts);
  // The lengths of `count` words, of which word i starts at `starts[i]`, with `lineEnd` characters between word and
  // word. Gives the greatest, modulo 2^32 and less 1: for an empty word that is all ones.
  uint32_t (*measure)(const uint32_t* starts, size_t count, uint32_t lineEnd, uint8_t* lengths);
  // Writes which of `count` words are longer than a head, and up to 16 entries behind the last. Gives their number. The
  // lengths are read up to the next multiple of kBlock.
  size_t (*findLong)(const uint8_t* lengths, size_t count, uint32_t* longWords);
  // Of the first kHead characters of `count` words, of which word i starts at `text + starts[i]`: the letter sets, and
  // those of them that are among the word's last three, the last of all in the lowest byte of a number; 0 stands for
  // one that is not among the first kHead. Of the text kHead bytes from each start on are read. The arrays are read and
  // written up to the next multiple of kWordsAtOnce.
  void (*collectHeads)(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count, LetterSet* sets,
                       uint32_t* lastCharacters);
  // For each bit of a set, and of the letters' numbers in the last characters, the lowest first: a number with that bit
  // of all 64 words, at `rows`, `rows + stride` and so on.
  void (*bitmapsOfSets)(const LetterSet* sets, uint64_t* rows, size_t stride);
  void (*bitmapsOfEndings)(const uint32_t* lastCharacters, uint64_t* rows, size_t stride);
};

// `width` is no wider than the machine's.
const LoadKernel& LoadKernelFor(VectorWidth width);

}  // namespace quorvane
