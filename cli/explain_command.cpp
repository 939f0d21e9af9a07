#include "cli/explain_command.h"

#include "cli/json.h"
#include "cli/output.h"
#include "results/search_command.h"
#include "results/search_run.h"
#include "search/conditions.h"
#include "search/input_check.h"
#include "search/reading.h"

namespace quorvane::cli {

int Explain(const SearchArguments& arguments, bool paste) {
  if (const auto tooLong = TooLongText(arguments.pattern)) {
    Complain(*tooLong);
    return kFailed;
  }
  InputQuestion question;
  SelectWordType(question.controls, arguments.search.mode);
  InputAnswer answer;
  std::string status;
  int beeps = 0;
  // Puts a text where the caret is, as typing and pasting do.
  const auto insert = [&](std::string_view text) {
    question.text.insert(question.caret, text);
    question.caret += text.size();
    answer = CheckInput(question, arguments.search.lists);
    question = {answer.text, answer.caret, answer.controls};
    beeps += answer.beeps;
    if (!answer.statusTexts.empty()) {
      status = answer.LastStatus();
    }
  };
  if (paste) {
    insert(arguments.pattern);
  } else {
    for (const char& c : arguments.pattern) {
      insert({&c, 1});
    }
  }
  const InputControls& controls = question.controls;
  const PreparedPattern prepared = PreparePattern(question.text, controls.selected);
  Search search = arguments.search;
  search.text = question.text;
  search.mode = controls.selected;
  const bool searchable = controls.canSearch && !search.text.empty() && !SearchRun(search).Prepared().refusal;
  Output output;
  output.Write(JsonObject()
                   .Text("text", question.text)
                   .Number("typing_kind", answer.kind)
                   .Text("noun", controls.noun)
                   .Text("status", status)
                   .Text("letters", controls.letters)
                   .Flag("can_search", controls.canSearch)
                   .Flag("anagrams", controls.anagrams)
                   .Flag("palindrome", controls.palindrome)
                   .Flag("save_as_lexicon", controls.saveAsLexicon)
                   .Number("beeps", beeps)
                   .Text("prepared", prepared.refusal ? "***" : prepared.text)
                   .Number("kind", static_cast<int>(prepared.kind))
                   .TextsIfAny("conditions", ConditionTexts(search))
                   .Text("reading", Reading(search))
                   .Text("command", searchable ? CommandOf({.search = search}) : "")
                   .Line());
  return output.Finish(kFound);
}

}  // namespace quorvane::cli
