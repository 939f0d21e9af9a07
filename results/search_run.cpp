#include "results/search_run.h"

#include "base/text.h"

namespace quorvane {

SearchRun::SearchRun(Search search)
    : search_(std::move(search)), prepared_(PreparePattern(search_.text, search_.mode)) {
  PreparedConditions conditions = PrepareConditions(search_);
  conditions_ = std::move(conditions.all);
  if (conditions.refusal && !prepared_.refusal) {
    refusedCondition_ = conditions.refusal->index;
    const std::string condition = QuotedText(ConditionText(search_.conditions[*refusedCondition_]));
    const std::string text = "Condition '" + condition + "': " + conditions.refusal->why;
    prepared_.refusal = PatternRefusal{text, text};
  }
}

CharacterLists SearchRun::MatchedLists() const {
  CharacterLists lists = search_.lists;
  lists.scrabble = UsableTiles(lists.scrabble);
  return lists;
}

ScanOutcome SearchRun::List(std::shared_ptr<const Lexicon> lexicon, RandomSource& random, const ListSettings& settings,
                            ResultList& results, ScanObserver* observer) const {
  ScanRequest request;
  request.prepared = prepared_;
  request.lists = MatchedLists();
  if (!search_.lengths.any) {
    request.minLength = search_.lengths.min;
    request.maxLength = search_.lengths.max;
  }
  request.conditions = conditions_;
  request.palindromes = search_.mode == WordType::Palindrome;
  const bool wasTruncated = results.LastScanTruncated();
  ScanOutcome outcome =
      PerformScan(*lexicon, request, results.BeginSearch(), random, observer, settings.screenCapacity, wasTruncated);
  results.EndSearch(search_, std::move(lexicon), outcome, settings.upperCase);
  return outcome;
}

}  // namespace quorvane
