#include "results/search_run.h"

namespace quorvane {

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
  request.palindromes = search_.mode == WordType::Palindrome;
  const bool wasTruncated = results.LastScanTruncated();
  ScanOutcome outcome =
      PerformScan(*lexicon, request, results.BeginSearch(), random, observer, settings.screenCapacity, wasTruncated);
  results.EndSearch(search_, std::move(lexicon), outcome, settings.upperCase);
  return outcome;
}

}  // namespace quorvane
