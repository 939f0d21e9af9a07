// A search from what is asked to the list of what was found: prepared once, then refused or run.
#pragma once

#include <limits>
#include <memory>

#include "results/result_list.h"
#include "search/conditions.h"
#include "search/pattern.h"
#include "search/scan.h"
#include "search/search.h"

namespace quorvane {

struct ListSettings {
  bool upperCase = false;
  // How many entries the screen list takes.
  size_t screenCapacity = std::numeric_limits<size_t>::max();
};

class SearchRun {
 public:
  explicit SearchRun(Search search);

  const Search& Asked() const { return search_; }
  // Its refusal is that of the text, else of the first condition that can't be searched.
  const PreparedPattern& Prepared() const { return prepared_; }
  // The lists as words are matched against them.
  CharacterLists MatchedLists() const;
  // The condition, counted from 0, that the refusal is of.
  std::optional<size_t> RefusedCondition() const { return refusedCondition_; }

  // Scans the lexicon and lists what was found, in the order found. Only of a pattern that is neither empty nor
  // refused. What went wrong on the way is in the outcome; the list then holds what was found before.
  ScanOutcome List(std::shared_ptr<const Lexicon> lexicon, RandomSource& random, const ListSettings& settings,
                   ResultList& results, ScanObserver* observer = nullptr) const;

 private:
  Search search_;
  PreparedPattern prepared_;
  std::vector<PreparedCondition> conditions_;
  std::optional<size_t> refusedCondition_;
};

}  // namespace quorvane
