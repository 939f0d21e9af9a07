#include "lexicon/load_report.h"

#include "base/text.h"

namespace quorvane {
namespace {

constexpr const char* kNotSortedLog = "Word list was not sorted alphabetically";

}  // namespace

std::string_view CauseOf(const LoadResult& result) {
  if (result.outcome == LoadOutcome::Ok || result.outcome == LoadOutcome::Capacity) {
    return {};
  }
  const std::string_view word = result.lastWord;
  if (result.count <= 1 &&
      (word.starts_with("\xEF\xBB\xBF") || word.starts_with("\xFF\xFE") || word.starts_with("\xFE\xFF"))) {
    return "The file starts with a byte order mark.";
  }
  return word.find('\r') != std::string_view::npos ? "CR alone ends its lines." : std::string_view();
}

LoadReport ReportOf(const LoadResult& result) {
  const std::string count = std::to_string(result.count);
  const std::string number = std::to_string(result.error.number);
  switch (result.outcome) {
    case LoadOutcome::Ok:
      return {};
    case LoadOutcome::Capacity:
      return {"Word list exceeds 2,000,000 words.", "ARRAY_OF",
              "Max # of input words in array reached; last word read was '" + QuotedText(result.lastWord) + "', #" +
                  count + ": Err=" + number};
    case LoadOutcome::NotSorted:
      return {"Word list is not sorted alphabetically.  You must sort it or use another list.", "NOTALPHA",
              kNotSortedLog};
    case LoadOutcome::NotSortedError:
      return {
          "Word list is not sorted alphabetically.  You must sort it or use another list before you can use this "
          "utility.",
          "NOTALPHA", kNotSortedLog};
    case LoadOutcome::ListError:
      break;
  }
  return {LexiconProblemTexts::kPoint, "LIST_ERR",
          "Word list error at word #" + count + " (" + QuotedText(result.lastWord) + ").  Err=" + number};
}

}  // namespace quorvane
