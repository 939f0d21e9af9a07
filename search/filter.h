// The first of a scan's three steps: filter. For 64 words at a time it makes one machine word with a bit for each word
// that may still match, from lengths and the letters' bitmaps alone.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "lexicon/lexicon.h"

namespace quorvane {

// What a word must fulfil to be looked at: `shortest` <= length <= `longest`, of the letters in `care` exactly those in
// `want`, and the letters of `ending` at its end. With `blanks` above 0 as many letters of `forbidden` may occur as
// there are blanks.
struct WordFilter {
  using Ending = std::array<char, LetterBitmaps::kEndingLetters>;

  unsigned shortest = 0;
  unsigned longest = kMaxWordLength;
  LetterSet care = 0;
  LetterSet want = 0;
  LetterSet forbidden = 0;  // Only with blanks; without them forbidden letters stand in `care` and not in `want`.
  unsigned blanks = 0;
  Ending ending{};  // From the last letter to the front; 0: whatever.

  void Require(LetterSet letters) {
    care |= letters;
    want |= letters;
  }
  void Forbid(LetterSet letters) { Narrow({.care = letters}); }
  // Also what another filter asks, but for its blanks.
  void Narrow(const WordFilter& other);
  // No letter but these (in words that hold letters only; a word with other characters is judged by itself).
  void Allow(LetterSet letters, unsigned blankTiles = 0);
};

// The words of a chunk that may still match: a bit for each word, 64 to a block, and a list of the blocks that have
// one. Where few words are left a step looks at those blocks alone, without asking every block whether it has any.
class Survivors {
 public:
  // A chunk lies within one group of the bitmaps; the bits of so many blocks stay in the nearest cache.
  static constexpr size_t kBlocks = LetterBitmaps::kGroupBlocks;
  static constexpr size_t kWords = LetterBitmaps::kGroupWords;

  // Begins anew, without a word, for the group of bitmaps in which `word` stands.
  void Begin(WordNumber word) {
    first_ = word / kWords * kWords;
    count_ = 0;
  }
  // The word of bit 0 of block 0.
  WordNumber First() const { return static_cast<WordNumber>(first_); }
  WordNumber First(size_t block) const { return static_cast<WordNumber>(first_ + 64 * block); }

  // Lists the blocks from `block` to `end - 1` with the bits `bitsOf(block)`; they are not listed yet.
  template <class BitsOf>
  void Fill(size_t block, size_t end, BitsOf bitsOf) {
    for (; block < end; ++block) {
      Keep(block, bitsOf(block));
    }
  }
  // Gives each listed block the bits `bitsOf(block, bits)`, a part of those it has.
  template <class BitsOf>
  void Narrow(BitsOf bitsOf) {
    const size_t listed = count_;
    count_ = 0;
    for (size_t i = 0; i < listed; ++i) {
      const size_t block = blocks_[i];
      Keep(block, bitsOf(block, bits_[block]));
    }
  }
  void Copy(const Survivors& other) {
    first_ = other.first_;
    count_ = 0;
    for (const uint16_t block : other.Blocks()) {
      Keep(block, other.bits_[block]);
    }
  }

  // The blocks with a bit, ascending.
  std::span<const uint16_t> Blocks() const { return {blocks_.data(), count_}; }
  size_t Count() const {
    size_t words = 0;
    for (const size_t block : Blocks()) {
      words += static_cast<size_t>(std::popcount(bits_[block]));
    }
    return words;
  }
  // Of a block that is listed, or that Narrow has emptied.
  uint64_t Bits(size_t block) const { return bits_[block]; }

 private:
  // Written whether it counts or not: no branch to guess.
  void Keep(size_t block, uint64_t bits) {
    bits_[block] = bits;
    blocks_[count_] = static_cast<uint16_t>(block);
    count_ += bits != 0 ? 1u : 0u;
  }

  std::array<uint64_t, kBlocks> bits_;
  std::array<uint16_t, kBlocks> blocks_;
  size_t first_ = 0;
  size_t count_ = 0;
};

// The last word that a chunk which begins with `first` can hold.
inline WordNumber LastOfChunk(WordNumber first) {
  return static_cast<WordNumber>(first / Survivors::kWords * Survivors::kWords + Survivors::kWords - 1);
}

// Fills `survivors` with those of the words `first` to `last`, all of one chunk, that pass.
void FilterWords(const Lexicon& lexicon, const WordFilter& filter, WordNumber first, WordNumber last,
                 Survivors& survivors);
// Keeps of the survivors only those that pass.
void NarrowWords(const Lexicon& lexicon, const WordFilter& filter, Survivors& survivors);

}  // namespace quorvane
