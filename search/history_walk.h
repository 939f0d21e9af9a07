// A walk through the history, from what the controls show to older searches and back: it ends where it began.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "search/control_state.h"
#include "search/history.h"

namespace quorvane {

class HistoryWalk {
 public:
  bool Begun() const { return before_.has_value(); }
  // `entries` are newest last, `before` is what the controls show. The walk meets each search once, in whatever lexicon
  // it was, and neither the one that is asked for at its beginning nor any that the controls can't ask for.
  void Begin(std::vector<HistoryEntry> entries, ControlState before);
  // A step; what the controls are to show then. Nothing at both ends, where the walk stays as it is.
  std::optional<ControlState> Older();
  std::optional<ControlState> Newer();
  // What the controls showed before; nothing when no walk had begun.
  std::optional<ControlState> End();

 private:
  std::optional<ControlState> before_;
  std::vector<HistoryEntry> ahead_;  // Not met yet; the next is the last.
  std::set<std::string> met_;        // By SearchKey.
  std::vector<ControlState> states_;
  size_t position_ = 0;  // 0: before; else that of states_, from 1.
};

}  // namespace quorvane
