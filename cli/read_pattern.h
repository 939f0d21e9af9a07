// From a pattern as it is given to the search.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include "results/search_run.h"

namespace quorvane::cli {

class SeededRandom : public RandomSource {
 public:
  explicit SeededRandom(uint32_t seed) : generator_(seed) {}
  double NextFraction() override { return static_cast<double>(generator_()) / 4294967296.0; }

 private:
  std::mt19937 generator_;
};

// A typed text after the check, as a search, or why it is refused.
struct ReadPattern {
  std::optional<std::string> refusal;
  std::optional<SearchRun> run;
};

// `asked` is all but the text; `strict` refuses a text of which the check would drop characters.
ReadPattern Read(const std::string& typed, const Search& asked, bool strict);

}  // namespace quorvane::cli
