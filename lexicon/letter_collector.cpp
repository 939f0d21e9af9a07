#include "lexicon/letter_collector.h"

#include <algorithm>
#include <cstring>

namespace quorvane {
namespace {

constexpr size_t kBlockWords = LetterBitmaps::kBlockWords;

}  // namespace

LetterCollector::LetterCollector(size_t most, const LoadKernel& kernel)
    : kernel_(kernel),
      sets_(most + kBlockWords + LoadKernel::kWordsAtOnce),
      lastCharacters_(sets_.size()),
      longWords_(most + LoadKernel::kWordsAtOnce),
      tailStarts_(most + LoadKernel::kWordsAtOnce),
      tailLengths_(most + LoadKernel::kWordsAtOnce),
      tailSets_(most + LoadKernel::kWordsAtOnce),
      tailLastCharacters_(most + LoadKernel::kWordsAtOnce) {}

void LetterCollector::Add(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t first, size_t last,
                          LetterBitmaps& bitmaps) {
  const size_t unfinished = first / kBlockWords * kBlockWords;
  const size_t count = last + 1 - first;
  LetterSet* sets = sets_.data() + (first - unfinished);
  uint32_t* lastCharacters = lastCharacters_.data() + (first - unfinished);
  kernel_.collectHeads(text, starts, lengths, count, sets, lastCharacters);
  AddTails(text, starts, lengths, count, sets, lastCharacters);
  size_t block = unfinished;
  for (; block + kBlockWords <= last + 1; block += kBlockWords) {
    MakeBitmaps(block - unfinished, block, bitmaps);
  }
  const size_t left = last + 1 - block;
  std::memmove(sets_.data(), &sets_[block - unfinished], left * sizeof(LetterSet));
  std::memmove(lastCharacters_.data(), &lastCharacters_[block - unfinished], left * sizeof(uint32_t));
}

void LetterCollector::MakeBitmaps(size_t i, size_t block, LetterBitmaps& bitmaps) const {
  uint64_t* rows = bitmaps.Block(block);
  kernel_.bitmapsOfSets(&sets_[i], rows, LetterBitmaps::kStride);
  rows += LetterBitmaps::kSetRows * LetterBitmaps::kStride;
  kernel_.bitmapsOfEndings(&lastCharacters_[i], rows, LetterBitmaps::kStride);
}

void LetterCollector::AddTails(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count,
                               LetterSet* sets, uint32_t* lastCharacters) {
  constexpr size_t kHead = LoadKernel::kHead;
  size_t left = kernel_.findLong(lengths, count, longWords_.data());
  for (size_t done = kHead; left > 0; done += kHead) {
    for (size_t i = 0; i < left; ++i) {
      tailStarts_[i] = starts[longWords_[i]] + static_cast<uint32_t>(done);
      tailLengths_[i] = static_cast<uint8_t>(lengths[longWords_[i]] - done);
    }
    kernel_.collectHeads(text, tailStarts_.data(), tailLengths_.data(), left, tailSets_.data(),
                         tailLastCharacters_.data());
    size_t longer = 0;
    for (size_t i = 0; i < left; ++i) {
      sets[longWords_[i]] |= tailSets_[i];
      lastCharacters[longWords_[i]] |= tailLastCharacters_[i];
      longWords_[longer] = longWords_[i];
      longer += tailLengths_[i] > kHead ? 1u : 0u;
    }
    left = longer;
  }
}

void LetterCollector::Finish(size_t words, LetterBitmaps& bitmaps) {
  const auto behind = static_cast<std::ptrdiff_t>(words % kBlockWords);
  std::fill(sets_.begin() + behind, sets_.end(), 0);
  std::fill(lastCharacters_.begin() + behind, lastCharacters_.end(), 0);
  MakeBitmaps(0, words, bitmaps);
}

}  // namespace quorvane
