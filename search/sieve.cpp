#include "search/sieve.h"

#include <algorithm>
#include <bit>

namespace quorvane {
namespace {

// Whether the pattern asks for one letter anywhere and nothing else.
bool AsksForOneLetter(const Verifier& verifier) {
  const WordFilter& filter = verifier.Filter();
  return verifier.Mode() == VerifyMode::FilterDecides && filter.shortest <= 1 && filter.longest >= kMaxWordLength &&
         filter.blanks == 0 && filter.care == filter.want && std::popcount(filter.want) == 1;
}

}  // namespace

Sieve::Sieve(const ScanRequest& request) {
  Add(Verifier(request.prepared, request.lists, static_cast<unsigned>(std::max(request.minLength, 0)),
               static_cast<unsigned>(std::max(request.maxLength, 0)), request.vectors),
      true);
  for (const PreparedCondition& condition : request.conditions) {
    Add(Verifier(condition.prepared, condition.lists, 1, kMaxWordLength, request.vectors), condition.mustFit);
  }
  std::stable_sort(tests_.begin(), tests_.end(),
                   [](const auto& a, const auto& b) { return a->verifier.Mode() < b->verifier.Mode(); });
}

void Sieve::Add(Verifier verifier, bool mustFit) {
  auto test = std::make_unique<Test>(Test{std::move(verifier), mustFit});
  const WordFilter& filter = test->verifier.Filter();
  if (mustFit) {
    filter_.Narrow(filter);
    test->filtered = filter.blanks == 0 || filter_.blanks == 0;
    if (filter.blanks != 0 && filter_.blanks == 0) {
      filter_.blanks = filter.blanks;
      filter_.forbidden = filter.forbidden;
    }
    if (test->filtered && test->verifier.Mode() == VerifyMode::FilterDecides) {
      return;
    }
  } else if (AsksForOneLetter(test->verifier)) {
    filter_.Forbid(filter.want);
    return;
  }
  tests_.push_back(std::move(test));
}

void Sieve::Keep(const Lexicon& lexicon, WordNumber first, WordNumber last, Survivors& survivors,
                 const uint64_t* among) {
  FilterWords(lexicon, filter_, first, last, survivors);
  if (among != nullptr) {
    const uint64_t* amongChunk = among + survivors.First() / LetterBitmaps::kBlockWords;
    survivors.Narrow([amongChunk](size_t block, uint64_t bits) { return bits & amongChunk[block]; });
  }
  for (const auto& test : tests_) {
    if (survivors.Blocks().empty()) {
      return;
    }
    if (!test->mustFit) {
      Drop(lexicon, test->verifier, survivors);
      continue;
    }
    if (!test->filtered) {
      NarrowWords(lexicon, test->verifier.Filter(), survivors);
    }
    test->verifier.Verify(lexicon, survivors);
  }
}

void Sieve::Drop(const Lexicon& lexicon, Verifier& verifier, Survivors& survivors) {
  fitting_.Copy(survivors);
  NarrowWords(lexicon, verifier.Filter(), fitting_);
  verifier.Verify(lexicon, fitting_);
  survivors.Narrow([this](size_t block, uint64_t bits) { return bits & ~fitting_.Bits(block); });
}

}  // namespace quorvane
