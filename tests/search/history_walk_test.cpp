// Walks through random histories, held against a plain list of what can be met.

#include "search/history_walk.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvane::test {
namespace {

class Histories {
 public:
  explicit Histories(unsigned seed) : random_(seed) {}

  size_t Below(size_t end) { return random_() % end; }
  template <class List>
  auto OneOf(const List& list) {
    return list[Below(std::size(list))];
  }
  // Controls as a person leaves them.
  ControlState Controls() {
    static constexpr const char* kTexts[] = {"c?t", "===", "#a*", "tea", "%2oo", "~12", ";oo~", "12345"};
    static constexpr const char* kRacks[] = {"", "q", "tea?"};
    ControlState state;
    state.lists = {OneOf(kRacks), "", OneOf(kRacks)};
    SelectWordType(state.input, static_cast<WordType>(Below(4)));
    const InputAnswer answer = CheckInput({OneOf(kTexts), 0, state.input}, state.lists);
    state.text = answer.text;
    state.input = answer.controls;
    state.caret = Below(state.text.size() + 1);
    state.lengths = {Below(2) == 0, 3, 3 + static_cast<int>(Below(3))};
    state.conditions.open = Below(2) == 0;
    state.conditions.texts[static_cast<size_t>(ConditionKind::With)] = Below(2) == 0 ? "" : "ab";
    return state;
  }
  // A search that no controls ask for.
  Search Impossible() {
    Search search;
    const size_t why = Below(4);
    search.text = why == 0 ? "c\x01t" : "c?t";
    search.mode = why == 1 ? WordType::Anagram : WordType::WordList;
    search.lengths = {why != 2, 3, 61};
    if (why == 3) {
      search.conditions = {{ConditionKind::And, "c*"}, {ConditionKind::And, "*t"}};
    }
    return search;
  }

 private:
  std::mt19937 random_;
};

TEST(HistoryWalk, MeetsEachSearchOnceAndEndsWhereItBegan) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Histories make(seed);
    const ControlState before = make.Controls();
    std::vector<HistoryEntry> entries;
    for (size_t i = make.Below(30); i > 0; --i) {
      entries.emplace_back();
      const bool possible = make.Below(4) > 0;
      entries.back().search = possible ? AskedBy(make.Controls()) : make.Impossible();
      // Conditions never go with random words.
      if (possible && entries.back().search.text.starts_with('~')) {
        entries.back().search.conditions.clear();
      }
      entries.back().name = possible ? "met" : "";
    }
    std::vector<std::string> expected = {SearchKey(AskedBy(before))};
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
      const std::string key = SearchKey(entry->search);
      if (!entry->name.empty() && std::find(expected.begin(), expected.end(), key) == expected.end()) {
        expected.push_back(key);
      }
    }
    HistoryWalk walk;
    walk.Begin(entries, before);
    size_t position = 0;
    for (int i = 0; i < 60; ++i) {
      const bool older = make.Below(5) > 1;
      const auto state = older ? walk.Older() : walk.Newer();
      const bool moves = older ? position + 1 < expected.size() : position > 0;
      ASSERT_EQ(state.has_value(), moves) << seed;
      position += moves ? (older ? 1U : size_t{0} - 1) : 0;
      if (moves) {
        EXPECT_EQ(SearchKey(AskedBy(*state)), expected[position]) << seed;
        EXPECT_TRUE(position > 0 || state->caret == before.caret) << seed;
        EXPECT_TRUE(!state->lengths.any || state->lengths.max == before.lengths.max) << seed;
      }
    }
    EXPECT_EQ(walk.End()->text, before.text);
    EXPECT_FALSE(walk.End());
  }
}

}  // namespace
}  // namespace quorvane::test
