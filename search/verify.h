// The second of a scan's three steps: verify. Looks at the words that the filter left and clears the bits of those that
// do not match.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "lexicon/lexicon.h"
#include "search/filter.h"
#include "search/match.h"
#include "search/pattern.h"

namespace quorvane {

// A prepared pattern, ready to be tried on many words: the filter derived from it and the test of what the filter
// leaves. Both are derived from `Matcher::MatchChar` when the search starts.
class Verifier {
 public:
  // `shortest` and `longest` are the length range of the search.
  Verifier(std::string_view pattern, PatternKind kind, const CharacterLists& lists, unsigned shortest,
           unsigned longest);
  ~Verifier();
  Verifier(const Verifier&) = delete;
  Verifier& operator=(const Verifier&) = delete;

  const WordFilter& Filter() const;

  // Keeps of the `blocks` * 64 words from `first` on only those that match.
  void Verify(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks);

 private:
  struct Plan;
  std::unique_ptr<Plan> plan_;
};

// Keeps only words that read the same both ways, character by character as stored.
void KeepPalindromes(const Lexicon& lexicon, WordNumber first, uint64_t* survivors, size_t blocks);

}  // namespace quorvane
