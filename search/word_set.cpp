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
  const size_t words = static_cast<size_t>(lexicon.count()) + 1;
  for (size_t first = 0; first < words; first += Survivors::kWords) {
    const auto number = static_cast<WordNumber>(first);
    sieve.Keep(lexicon, number, std::min(Survivors::kWords, words - first), *survivors, &bits_[first / 64]);
    for (const uint16_t block : survivors->Blocks()) {
      meeting.bits_[first / 64 + block] = survivors->Bits(block);
    }
    Emit(*survivors, number, fitting);
  }
  return meeting;
}

}  // namespace quorvane
