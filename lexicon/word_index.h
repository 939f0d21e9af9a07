// Whether words are in a lexicon, in whatever order it stands.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "lexicon/lexicon.h"

namespace quorvane {

class WordIndex {
 public:
  // The lexicon must live as long as the index.
  explicit WordIndex(const Lexicon& lexicon);

  // Letter case does not count.
  bool Has(std::string_view word) const;

 private:
  size_t SlotOf(std::string_view folded) const;

  const Lexicon& lexicon_;
  std::vector<WordNumber> slots_;  // A power of two, at most half of them taken; 0 is free.
};

}  // namespace quorvane
