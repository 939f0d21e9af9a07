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
      longWords_(most + LoadKernel::kWordsAtOnce),
      tailStarts_(most + LoadKernel::kWordsAtOnce),
      tailLengths_(most + LoadKernel::kWordsAtOnce),
      tailSets_(most + LoadKernel::kWordsAtOnce) {}

void LetterCollector::Add(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t first, size_t last,
                          LetterBitmaps& bitmaps) {
  const size_t unfinished = first / kBlockWords * kBlockWords;
  const size_t count = last + 1 - first;
  LetterSet* sets = sets_.data() + (first - unfinished);
  kernel_.setsOfHeads(text, starts + first, lengths + first, count, sets);
  AddTails(text, starts + first, lengths + first, count, sets);
  size_t block = unfinished;
  for (; block + kBlockWords <= last + 1; block += kBlockWords) {
    kernel_.bitmapsOf64(&sets_[block - unfinished], bitmaps.Block(block), LetterBitmaps::kStride);
  }
  std::memmove(sets_.data(), &sets_[block - unfinished], kBlockWords * sizeof(LetterSet));
}

void LetterCollector::AddTails(const char* text, const uint32_t* starts, const uint8_t* lengths, size_t count,
                               LetterSet* sets) {
  constexpr size_t kHead = LoadKernel::kHead;
  size_t left = kernel_.findLong(lengths, count, longWords_.data());
  for (size_t done = kHead; left > 0; done += kHead) {
    for (size_t i = 0; i < left; ++i) {
      tailStarts_[i] = starts[longWords_[i]] + static_cast<uint32_t>(done);
      tailLengths_[i] = static_cast<uint8_t>(lengths[longWords_[i]] - done);
    }
    kernel_.setsOfHeads(text, tailStarts_.data(), tailLengths_.data(), left, tailSets_.data());
    size_t longer = 0;
    for (size_t i = 0; i < left; ++i) {
      sets[longWords_[i]] |= tailSets_[i];
      longWords_[longer] = longWords_[i];
      longer += tailLengths_[i] > kHead ? 1u : 0u;
    }
    left = longer;
  }
}

void LetterCollector::Finish(size_t words, LetterBitmaps& bitmaps) {
  std::fill(sets_.begin() + static_cast<std::ptrdiff_t>(words % kBlockWords), sets_.end(), 0);
  kernel_.bitmapsOf64(sets_.data(), bitmaps.Block(words), LetterBitmaps::kStride);
}

}  // namespace quorvane
