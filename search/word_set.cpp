#include "search/word_set.h"

#include <algorithm>
#include <memory>

#include "search/sieve.h"

namespace quorvane {

WordSet::WordSet(const Lexicon& lexicon, std::span<const WordNumber> numbers)
    : bits_(static_cast<size_t>(lexicon.count()) / 64 + 1) {
  for (const WordNumber number : numbers) {
    bits_[number / 64] |= uint64_t{1} << (number % 64);
  }
}

WordSet WordSet::Meeting(const Lexicon& lexicon, const PreparedCondition& condition, FoundNumbers& fitting) const {
  ScanRequest request;
  request.prepared = condition.prepared;
  request.lists = condition.lists;
  request.maxLength = kMaxWordLength;
  Sieve sieve(request);
  const auto survivors = std::make_unique<Survivors>();
  WordSet meeting(bits_.size());
  fitting.Clear();
  // With the empty word 0, which no length lets pass, numbers and bits begin together.
  const auto last = static_cast<WordNumber>(lexicon.count());
  for (WordNumber first = 0; first <= last; first += static_cast<WordNumber>(Survivors::kWords)) {
    sieve.Keep(lexicon, first, std::min(LastOfChunk(first), last), *survivors, bits_.data());
    for (const uint16_t block : survivors->Blocks()) {
      meeting.bits_[first / 64 + block] = survivors->Bits(block);
    }
    Emit(*survivors, fitting);
  }
  return meeting;
}

}  // namespace quorvane
