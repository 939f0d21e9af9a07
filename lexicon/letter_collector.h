// Fills the letters' bitmaps while a lexicon is loaded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "lexicon/letter_bitmaps.h"
#include "lexicon/load_kernel.h"

namespace quorvane {

class LetterCollector {
 public:
  // `most` is how many words may be added at once.
  LetterCollector(size_t most, const LoadKernel& kernel);

  // Adds the words `first` to `last`, of which the first follows the last one added. They lie in `text` where the
  // arrays say, from that of the first on; these are read up to 64 entries, and the text up to 16 bytes, behind the
  // last word.
  void Add(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t first, size_t last,
           LetterBitmaps& bitmaps);
  // There are no more words behind the last one added; `words` is its number, and 1 more.
  void Finish(size_t words, LetterBitmaps& bitmaps);

 private:
  void AddTails(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count, LetterSet* sets,
                uint32_t* lastCharacters);
  // Of 64 words from word `block` on, what of the collected stands at `i`.
  void MakeBitmaps(size_t i, size_t block, LetterBitmaps& bitmaps) const;

  const LoadKernel& kernel_;
  // Of the words from the last unfinished block on.
  std::vector<LetterSet> sets_;
  std::vector<uint32_t> lastCharacters_;
  // The words that go on behind what was collected of them: which they are, and of what is left start, length, set and
  // last characters.
  std::vector<uint32_t> longWords_;
  std::vector<uint32_t> tailStarts_;
  std::vector<uint8_t> tailLengths_;
  std::vector<LetterSet> tailSets_;
  std::vector<uint32_t> tailLastCharacters_;
};

}  // namespace quorvane
