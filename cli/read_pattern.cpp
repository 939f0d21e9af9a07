#include "cli/read_pattern.h"

#include "cli/arguments.h"
#include "search/input_check.h"

namespace quorvane::cli {

ReadPattern Read(const std::string& typed, const Search& asked, bool strict) {
  if (auto tooLong = TooLongText(typed)) {
    return {std::move(tooLong), std::nullopt};
  }
  if (typed.empty()) {
    return {std::string(FactsOf(asked.mode).prompt), std::nullopt};
  }
  InputControls controls;
  SelectWordType(controls, asked.mode);
  const InputAnswer answer = CheckInput({typed, typed.size(), controls}, asked.lists);
  if (answer.controls.selected != asked.mode) {
    const std::string moved =
        "'" + typed + "' can't be searched with --type " + std::string(FactsOf(asked.mode).option);
    return {answer.beeps > 0 ? answer.LastStatus() + " (" + moved + ")" : moved, std::nullopt};
  }
  if (answer.beeps > 0 || !answer.controls.canSearch) {
    return {answer.LastStatus(), std::nullopt};
  }
  if (answer.text.empty()) {
    return {std::string(FactsOf(asked.mode).prompt), std::nullopt};
  }
  if (strict && answer.text != typed) {
    return {"--strict: only '" + answer.text + "' of the pattern can be searched", std::nullopt};
  }
  Search search = asked;
  search.text = answer.text;
  search.noun = answer.controls.noun;
  SearchRun run(search);
  if (run.Prepared().refusal) {
    return {run.Prepared().refusal->statusText, std::nullopt};
  }
  return {std::nullopt, std::move(run)};
}

}  // namespace quorvane::cli
