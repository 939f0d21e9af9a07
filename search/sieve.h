// All that a search asks of a word, in the order that costs least: one filter for what the pattern and the conditions
// ask together, then each test on what is left.
#pragma once

#include <memory>
#include <vector>

#include "search/filter.h"
#include "search/scan.h"
#include "search/verify.h"

namespace quorvane {

class Sieve {
 public:
  // Of anything but random words. The request outlives it.
  explicit Sieve(const ScanRequest& request);

  // Fills `survivors` with those of the words `first` to `last`, all of one chunk, that fit the pattern and meet all
  // conditions; where `among` is given, of those whose bits, by number, are set there.
  void Keep(const Lexicon& lexicon, WordNumber first, WordNumber last, Survivors& survivors,
            const uint64_t* among = nullptr);

 private:
  struct Test {
    Verifier verifier;
    bool mustFit = true;
    bool filtered = false;  // The common filter asks all that the test's own does.
  };

  void Add(Verifier verifier, bool mustFit);
  void Drop(const Lexicon& lexicon, Verifier& verifier, Survivors& survivors);

  WordFilter filter_;
  std::vector<std::unique_ptr<Test>> tests_;
  Survivors fitting_;  // Of the pattern that a word must not fit.
};

}  // namespace quorvane
