#include "search/search_json.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "search/conditions.h"

namespace quorvane {
namespace {

constexpr const char* kType = kTypeOption.data();
constexpr const char* kLength = kLengthOption.data();
constexpr const char* kNoun = "noun";  // Only where it is not the type's own.

// The key and the text of each.
std::array<std::pair<const char*, std::string*>, 1 + kListKinds.size()> TextsOf(Search& search) {
  std::array<std::pair<const char*, std::string*>, 1 + kListKinds.size()> texts{{{kPatternKey, &search.text}}};
  for (size_t i = 0; i < kListKinds.size(); ++i) {
    texts[i + 1] = {FactsOf(kListKinds[i]).option.data(), &search.lists.Of(kListKinds[i])};
  }
  return texts;
}

// The conditions of one kind: an array of texts. False when it is none.
bool TakeConditions(const Json& object, const ConditionFacts& facts, std::vector<Condition>& conditions) {
  const auto texts = object.find(std::string(facts.option));
  if (texts == object.end()) {
    return true;
  }
  for (const Json& text : *texts) {
    const auto bytes = text.is_string() ? BytesFromUtf8(text.get_ref<const std::string&>()) : std::nullopt;
    if (!bytes) {
      return false;
    }
    conditions.push_back({facts.kind, *bytes});
  }
  return texts->is_array();
}

}  // namespace

std::optional<std::string> BytesFromUtf8(std::string_view utf8) {
  std::string bytes;
  for (size_t i = 0; i < utf8.size();) {
    const int32_t codePoint = NextCodePoint(utf8, i);
    const char byte = ByteOf(static_cast<char32_t>(codePoint), '\0');
    if (codePoint < 0 || (byte == '\0' && codePoint != 0)) {
      return std::nullopt;
    }
    bytes += byte;
  }
  return bytes;
}

bool TakeText(const Json& object, const char* key, std::string& text) {
  const auto found = object.find(key);
  if (found == object.end()) {
    return true;
  }
  if (found->is_string()) {
    text = found->get_ref<const std::string&>();
  }
  return found->is_string();
}

void PutSearch(const Search& search, Json& object) {
  Search copy = search;
  for (const auto& [key, text] : TextsOf(copy)) {
    object[key] = Utf8FromBytes(*text);
  }
  object[kType] = FactsOf(search.mode).option;
  if (!search.lengths.any) {
    object[kLength] = LengthText(search.lengths);
  }
  if (search.noun != FactsOf(search.mode).noun) {
    object[kNoun] = Utf8FromBytes(search.noun);
  }
  for (const Condition& condition : search.conditions) {
    object[std::string(FactsOf(condition.kind).option)].push_back(Utf8FromBytes(condition.text));
  }
}

std::optional<Search> SearchOf(const Json& object) {
  Search search;
  for (const auto& [key, text] : TextsOf(search)) {
    std::string utf8;
    auto bytes = TakeText(object, key, utf8) ? BytesFromUtf8(utf8) : std::nullopt;
    if (!bytes) {
      return std::nullopt;
    }
    *text = *std::move(bytes);
  }
  std::string type(FactsOf(search.mode).option);
  std::string length;
  if (!TakeText(object, kType, type) || !TakeText(object, kLength, length)) {
    return std::nullopt;
  }
  const auto mode = WordTypeOfOption(type);
  if (!mode || (object.contains(kLength) && !ReadLengths(length, search.lengths))) {
    return std::nullopt;
  }
  search.mode = *mode;
  std::string noun(FactsOf(*mode).noun);
  auto bytes = TakeText(object, kNoun, noun) ? BytesFromUtf8(noun) : std::nullopt;
  if (!bytes) {
    return std::nullopt;
  }
  search.noun = *std::move(bytes);
  for (const ConditionFacts& facts : ConditionKinds()) {
    if (!TakeConditions(object, facts, search.conditions)) {
      return std::nullopt;
    }
  }
  return search;
}

bool IsSearchKey(std::string_view key) {
  Search search;
  const auto texts = TextsOf(search);
  const auto kinds = ConditionKinds();
  return std::any_of(kinds.begin(), kinds.end(), [&](const ConditionFacts& facts) { return key == facts.option; }) ||
         key == kType || key == kLength || key == kNoun ||
         std::any_of(texts.begin(), texts.end(), [&](const auto& text) { return key == text.first; });
}

}  // namespace quorvane
