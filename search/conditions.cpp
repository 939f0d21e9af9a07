#include "search/conditions.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "lexicon/letter_set.h"
#include "search/input_check.h"

namespace quorvane {
namespace {

using enum ConditionKind;

constexpr std::array kFacts = {
    ConditionFacts{And, "and", "and", true, "Words that fit this pattern, too"},
    ConditionFacts{Not, "not", "not", true, "No words that fit this pattern"},
    ConditionFacts{With, "with", "with", false, "Words with all these letters, each as often as it stands here"},
    ConditionFacts{Without, "without", "without", false, "Words with none of these letters"},
    ConditionFacts{From, "from", "from tiles", false, "Words of these tiles, each used once; - and ? are blanks"},
};

static_assert(kFacts.size() == kConditionKinds);
static_assert([] {
  for (size_t i = 0; i < kFacts.size(); ++i) {
    if (kFacts[i].kind != static_cast<ConditionKind>(i)) {
      return false;
    }
  }
  return true;
}());

constexpr std::string_view kNoRandomCondition = "random words can't be a condition";
constexpr std::string_view kNoRandomSearch = "random words take no conditions";

// Why the check of typed texts would not leave the pattern as it is; nothing when it would.
std::optional<std::string> PatternProblem(const std::string& text, const CharacterLists& lists) {
  if (text.empty()) {
    return std::string(kWordPrompt);
  }
  if (text.starts_with('~')) {
    return std::string(kNoRandomCondition);
  }
  if (text.size() > kMaxPatternLength) {
    return "it has more than " + FormatThousands(kMaxPatternLength) + " characters";
  }
  const InputAnswer answer = CheckInput({text, text.size(), {}}, lists);
  if (answer.beeps > 0 || (!answer.controls.canSearch && answer.text == text)) {
    return answer.LastStatus();
  }
  if (answer.text != text) {
    return "only '" + answer.text + "' of it can be searched";
  }
  return std::nullopt;
}

std::optional<std::string> LettersProblem(const std::string& text, bool tiles) {
  if (text.empty()) {
    return std::string(kEmptyListRefusal);
  }
  const std::string kept = KeepLetters(text, tiles, true);
  if (kept == text) {
    return std::nullopt;
  }
  const auto [stray, end] = std::mismatch(text.begin(), text.end(), kept.begin(), kept.end());
  return "'" + std::string(1, *stray) + "' is not allowed; it takes letters" + (tiles ? ", - and ?" : "");
}

std::optional<std::string> ProblemOf(const Condition& condition, const CharacterLists& lists) {
  return FactsOf(condition.kind).pattern ? PatternProblem(condition.text, lists)
                                         : LettersProblem(condition.text, condition.kind == From);
}

PreparedPattern AnyOrder(std::string_view letters) {
  return PreparePattern(";" + std::string(letters) + "~", WordType::WordList);
}

void Add(const Condition& condition, const CharacterLists& lists, std::vector<PreparedCondition>& prepared) {
  switch (condition.kind) {
    case And:
    case Not:
      prepared.push_back({PreparePattern(condition.text, WordType::WordList), lists, condition.kind == And});
      break;
    case With:
      prepared.push_back({AnyOrder(condition.text), lists, true});
      break;
    case Without:
      for (char c = 'a'; c <= 'z'; ++c) {
        if ((LetterSetOf(condition.text) & LetterBit(c)) != 0) {
          prepared.push_back({AnyOrder({&c, 1}), lists, false});
        }
      }
      break;
    case From: {
      PreparedPattern tiles;
      tiles.kind = PatternKind::Tiles;
      tiles.letters = UsableTiles(FoldText(condition.text));
      tiles.text = tiles.letters;
      prepared.push_back({std::move(tiles), lists, true});
      break;
    }
  }
}

}  // namespace

std::span<const ConditionFacts> ConditionKinds() {
  return kFacts;
}

const ConditionFacts& FactsOf(ConditionKind kind) {
  return kFacts[static_cast<size_t>(kind)];
}

std::string ConditionText(const Condition& condition) {
  return std::string(FactsOf(condition.kind).legend) + ": " + condition.text;
}

std::vector<std::string> ConditionTexts(const Search& search) {
  std::vector<std::string> texts;
  std::transform(search.conditions.begin(), search.conditions.end(), std::back_inserter(texts), ConditionText);
  return texts;
}

std::vector<ListKind> ListsNamedIn(const Search& search) {
  std::string patterns = search.text;
  for (const Condition& condition : search.conditions) {
    patterns += FactsOf(condition.kind).pattern ? condition.text : "";
  }
  return ListsNamedIn(patterns);
}

PreparedConditions PrepareConditions(const Search& search) {
  PreparedConditions prepared;
  CharacterLists lists = search.lists;
  lists.scrabble = UsableTiles(lists.scrabble);
  for (size_t i = 0; i < search.conditions.size(); ++i) {
    std::optional<std::string> problem = ProblemOf(search.conditions[i], search.lists);
    if (!problem && search.text.starts_with('~')) {
      problem = kNoRandomSearch;
    }
    if (problem) {
      return {{}, ConditionRefusal{i, *problem}};
    }
    Add(search.conditions[i], lists, prepared.all);
  }
  return prepared;
}

}  // namespace quorvane
