// The conditions of a search: what is said of them and their preparation.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "search/character_lists.h"
#include "search/pattern.h"
#include "search/search.h"

namespace quorvane {

// Everything that tells the kinds of condition apart.
struct ConditionFacts {
  ConditionKind kind;
  std::string_view option;  // On the command line, without its dashes.
  std::string_view legend;  // "from tiles"
  bool pattern;             // The text is a pattern; else letters.
  std::string_view help;
};
// By ConditionKind.
std::span<const ConditionFacts> ConditionKinds();
const ConditionFacts& FactsOf(ConditionKind kind);

// "not: *s", as files, pages and messages have it.
std::string ConditionText(const Condition& condition);
std::vector<std::string> ConditionTexts(const Search& search);

// The lists whose wildcards occur in the search's text or in a condition's pattern, in the order of the results file.
std::vector<ListKind> ListsNamedIn(const Search& search);

// A condition in the form that a scan works with. A pattern is prepared as for a word list, whatever the search's mode.
struct PreparedCondition {
  PreparedPattern prepared;
  CharacterLists lists;
  bool mustFit = true;
};

struct ConditionRefusal {
  size_t index = 0;  // Of the search's conditions.
  std::string why;
};

struct PreparedConditions {
  std::vector<PreparedCondition> all;
  std::optional<ConditionRefusal> refusal;  // Of the first that can't be searched; then there is nothing to search.
};
// Refuses what the input check would refuse or change, random words, and anything but letters where letters belong.
// A search for random words takes no condition.
PreparedConditions PrepareConditions(const Search& search);

}  // namespace quorvane
