#include "cli/explain_command.h"

#include "cli/json.h"
#include "cli/output.h"
#include "search/input_check.h"

namespace quorvane::cli {

int Explain(const SearchArguments& arguments, bool paste) {
  InputState state;
  SelectWordType(state, arguments.search.mode);
  std::string status;
  int beeps = 0;
  // Puts a text where the caret is, as typing and pasting do.
  const auto insert = [&](std::string_view text) {
    state.text.insert(state.caret, text);
    state.caret += text.size();
    const InputMessages messages = CheckInput(state, arguments.search.lists);
    beeps += messages.beeps;
    if (!messages.statusTexts.empty()) {
      status = messages.LastStatus();
    }
  };
  if (paste) {
    insert(arguments.pattern);
  } else {
    for (const char& c : arguments.pattern) {
      insert({&c, 1});
    }
  }
  const PreparedPattern prepared = PreparePattern(state.text, state.selected);
  Output output;
  output.Write(JsonObject()
                   .Text("text", state.text)
                   .Number("typing_kind", state.patternKind)
                   .Text("noun", state.noun)
                   .Text("status", status)
                   .Text("letters", state.letters)
                   .Flag("can_search", state.canSearch)
                   .Flag("anagrams", state.anagrams)
                   .Flag("palindrome", state.palindrome)
                   .Flag("save_as_lexicon", state.saveAsLexicon)
                   .Number("beeps", beeps)
                   .Text("prepared", prepared.pattern)
                   .Number("kind", static_cast<int>(prepared.kind))
                   .Line());
  return output.Finish(kFound);
}

}  // namespace quorvane::cli
