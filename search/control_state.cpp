#include "search/control_state.h"

#include <algorithm>

#include "base/limits.h"
#include "search/conditions.h"

namespace quorvane {
namespace {

// Every box empty, if the row is open at all.
bool PutConditions(const Search& search, ConditionRow& row) {
  if (PrepareConditions(search).refusal) {
    return false;
  }
  if (row.open || !search.conditions.empty()) {
    row = {true, {}};
  }
  return std::all_of(search.conditions.begin(), search.conditions.end(), [&row](const Condition& condition) {
    std::string& text = row.texts[static_cast<size_t>(condition.kind)];
    const bool first = text.empty();
    text = condition.text;
    return first;
  });
}

}  // namespace

Search AskedBy(const ControlState& state) {
  Search search{state.text, state.input.selected, state.input.noun, state.lengths, state.lists, {}};
  for (const ConditionFacts& facts : ConditionKinds()) {
    const std::string& text = state.conditions.texts[static_cast<size_t>(facts.kind)];
    if (state.conditions.open && !text.empty()) {
      search.conditions.push_back({facts.kind, text});
    }
  }
  return search;
}

std::optional<ControlState> StateOf(const Search& search, const ControlState& before) {
  ControlState state = before;
  state.lists = search.lists;
  InputControls controls;
  controls.selected = search.mode;
  InputAnswer answer = CheckInput({search.text, search.text.size(), controls}, search.lists);
  const LengthRange& lengths = search.lengths;
  if (answer.text != search.text || !PutConditions(search, state.conditions) ||
      (!lengths.any && (lengths.min < 1 || lengths.max > kLongestLengthOffered || lengths.min > lengths.max))) {
    return std::nullopt;
  }
  state.text = search.text;
  state.caret = search.text.size();
  state.input = std::move(answer.controls);
  if (IsAnagram(search.mode) && !state.input.anagrams) {
    return std::nullopt;
  }
  state.input.selected = search.mode;
  state.input.noun = search.noun;
  state.input.saveAsLexicon = before.input.saveAsLexicon;
  state.lengths.any = lengths.any;
  if (!lengths.any) {
    state.lengths = lengths;
  }
  return state;
}

}  // namespace quorvane
