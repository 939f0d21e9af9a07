// All that the controls show of what is asked: what a walk through the history changes and brings back.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "search/input_check.h"
#include "search/search.h"

namespace quorvane {

// The row of conditions: a text a kind. A closed row asks for nothing and keeps its texts.
struct ConditionRow {
  bool open = false;
  std::array<std::string, kConditionKinds> texts;
};

struct ControlState {
  CharacterLists lists;
  std::string text;
  size_t caret = 0;
  InputControls input;
  LengthRange lengths;
  ConditionRow conditions;
};

Search AskedBy(const ControlState& state);

// The controls that ask for the search; what it does not speak of stays as in `before`: the range while any length is
// asked for, the row of conditions where it has none, whether the list may become a lexicon. Nothing when the controls
// can't ask for it: the text is not the input check's or not one for the mode, there are two conditions of a kind, or a
// length is not offered.
std::optional<ControlState> StateOf(const Search& search, const ControlState& before);

}  // namespace quorvane
