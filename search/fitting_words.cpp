#include "search/fitting_words.h"

#include <algorithm>
#include <memory>

#include "search/sieve.h"

namespace quorvane {

FittingWords::FittingWords(const Lexicon& lexicon, const PreparedCondition& condition) {
  ScanRequest request;
  request.prepared = condition.prepared;
  request.lists = condition.lists;
  request.maxLength = kMaxWordLength;
  Sieve sieve(request);
  const auto survivors = std::make_unique<Survivors>();
  // With the empty word 0, which no length lets pass, numbers and bits begin together.
  const size_t words = static_cast<size_t>(lexicon.count()) + 1;
  bits_.resize((words + 63) / 64);
  for (size_t first = 0; first < words; first += Survivors::kWords) {
    sieve.Keep(lexicon, static_cast<WordNumber>(first), std::min(Survivors::kWords, words - first), *survivors);
    for (const uint16_t block : survivors->Blocks()) {
      bits_[first / 64 + block] = survivors->Bits(block);
    }
  }
}

}  // namespace quorvane
