#include "search/history_walk.h"

#include <utility>

namespace quorvane {

void HistoryWalk::Begin(std::vector<HistoryEntry> entries, ControlState before) {
  ahead_ = std::move(entries);
  met_ = {SearchKey(AskedBy(before))};
  states_.clear();
  position_ = 0;
  before_ = std::move(before);
}

std::optional<ControlState> HistoryWalk::Older() {
  while (before_ && position_ == states_.size() && !ahead_.empty()) {
    const Search search = std::move(ahead_.back().search);
    ahead_.pop_back();
    auto state = StateOf(search, *before_);
    if (state && met_.insert(SearchKey(search)).second) {
      states_.push_back(*std::move(state));
    }
  }
  return position_ < states_.size() ? std::optional(states_[position_++]) : std::nullopt;
}

std::optional<ControlState> HistoryWalk::Newer() {
  if (position_ == 0) {
    return std::nullopt;
  }
  --position_;
  return position_ == 0 ? before_ : states_[position_ - 1];
}

std::optional<ControlState> HistoryWalk::End() {
  position_ = 0;
  states_.clear();
  ahead_.clear();
  return std::exchange(before_, std::nullopt);
}

}  // namespace quorvane
