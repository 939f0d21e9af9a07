// The second of a scan's three steps: verify. Looks at the words that the filter left and drops those that do not
// match.
#pragma once

#include <string_view>

#include "lexicon/lexicon.h"
#include "search/filter.h"
#include "search/match.h"
#include "search/pattern.h"
#include "search/text_pass.h"
#include "search/verify_plan.h"

namespace quorvane {

// A prepared pattern, ready to be tried on many words.
class Verifier {
 public:
  // `shortest` and `longest` are the length range of the search.
  Verifier(const PreparedPattern& prepared, const CharacterLists& lists, unsigned shortest, unsigned longest,
           VectorWidth vectors);

  const WordFilter& Filter() const { return plan_.filter; }
  VerifyMode Mode() const { return plan_.mode; }

  // Keeps of the survivors only those that match.
  void Verify(const Lexicon& lexicon, Survivors& survivors);

 private:
  // Of the words of a block, `first` with bit 0, those that fit by the one definition of matching.
  uint64_t Tried(const Lexicon& lexicon, WordNumber first, uint64_t bits);
  template <class Test>
  void Keep(const Lexicon& lexicon, Survivors& survivors, Test test);

  const VerifyPlan plan_;
  const TextPass textPass_;
  WordTest wordTest_;
};

// Whether a word reads the same both ways, character by character as stored.
bool IsPalindrome(std::string_view word);
void KeepPalindromes(const Lexicon& lexicon, Survivors& survivors);

}  // namespace quorvane
