#include "cli/request.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/text.h"
#include "results/search_command.h"
#include "search/conditions.h"
#include "search/search_json.h"

namespace quorvane::cli {
namespace {

using Problem = std::optional<std::string>;

constexpr std::string_view kId = "id";
constexpr std::string_view kSeed = "seed";

// Whole numbers are made by the shortest way: nearly every request has one.
std::string TextOfJson(const Json& value) {
  return value.is_number_unsigned() ? std::to_string(value.get<uint64_t>()) : value.dump();
}

std::string Quoted(std::string_view key) {
  return "'" + QuotedText(key) + "'";
}

// What a text of JSON is in the characters of a search.
Problem TakeBytes(std::string_view key, const Json& value, std::string& bytes) {
  if (!value.is_string()) {
    return Quoted(key) + " takes a text";
  }
  auto read = BytesFromUtf8(value.get_ref<const std::string&>());
  if (!read) {
    return Quoted(key) + " holds a character that no word has";
  }
  bytes = *std::move(read);
  return std::nullopt;
}

Problem TakeConditions(const ConditionFacts& facts, const Json& value, std::vector<Condition>& conditions) {
  std::erase_if(conditions, [&](const Condition& condition) { return condition.kind == facts.kind; });
  const auto take = [&](const Json& text) {
    conditions.push_back({facts.kind, {}});
    return TakeBytes(facts.option, text, conditions.back().text);
  };
  if (!value.is_array()) {
    return take(value);
  }
  for (const Json& text : value) {
    if (auto problem = take(text)) {
      return problem;
    }
  }
  return std::nullopt;
}

// The text that a key's value becomes; null where none does.
std::string* TextOf(std::string_view key, FindArguments& find) {
  for (const ListKind kind : kListKinds) {
    if (key == FactsOf(kind).option) {
      return &find.asked.search.lists.Of(kind);
    }
  }
  return key == kPatternKey   ? &find.asked.pattern
         : key == kTypeOption ? &find.asked.typeName
         : key == kSortOption ? &find.sortName
                              : nullptr;
}

// The same of numbers, which may be texts as well.
std::string* NumberOf(std::string_view key, FindArguments& find) {
  return key == kLengthOption ? &find.asked.lengthText : key == kLimitOption ? &find.limitText : nullptr;
}

bool* FlagOf(std::string_view key, FindArguments& find) {
  return key == kUpperOption     ? &find.upper
         : key == kCountOption   ? &find.count
         : key == kStrictOption  ? &find.strict
         : key == kExplainOption ? &find.explain
                                 : nullptr;
}

Problem TakeKey(std::string_view key, const Json& value, Request& request) {
  FindArguments& find = request.find;
  if (std::string* text = TextOf(key, find)) {
    return TakeBytes(key, value, *text);
  }
  if (std::string* number = NumberOf(key, find)) {
    *number = value.is_number() ? TextOfJson(value) : value.is_string() ? value.get_ref<const std::string&>() : "";
    return number->empty() ? Problem(Quoted(key) + " takes a number or a text") : std::nullopt;
  }
  if (bool* flag = FlagOf(key, find)) {
    *flag = value.is_boolean() && value.get<bool>();
    return value.is_boolean() ? std::nullopt : Problem(Quoted(key) + " takes true or false");
  }
  if (key == kSeed) {
    if (!value.is_number_unsigned() || value.get<uint64_t>() > std::numeric_limits<uint32_t>::max()) {
      return Quoted(key) + " takes a number from 0 to 4294967295";
    }
    request.seed = value.get<uint32_t>();
    return std::nullopt;
  }
  for (const ConditionFacts& facts : ConditionKinds()) {
    if (key == facts.option) {
      return TakeConditions(facts, value, find.asked.search.conditions);
    }
  }
  return key == kId ? std::nullopt : Problem("there is no key " + Quoted(key));
}

// The identifier first: an answer that is a problem has it, too.
void TakeObject(const Json& object, Request& request) {
  const auto id = object.find(kId);
  if (id != object.end() && id->is_structured()) {
    request.problem = Quoted(kId) + " takes a text or a number";
    return;
  }
  request.id = id == object.end() ? "" : TextOfJson(*id);
  for (const auto& [key, value] : object.items()) {
    if (auto problem = TakeKey(key, value, request)) {
      request.problem = std::move(problem);
      return;
    }
  }
  if (!object.contains(kPatternKey)) {
    const bool conditions = !request.find.asked.search.conditions.empty();
    request.find.asked.pattern = "*";
    request.problem = conditions ? std::nullopt : Problem("there is no pattern");
  }
}

}  // namespace

Request ReadRequest(std::string_view line, const FindArguments& usual) {
  Request request{{}, usual, {}, {}};
  const size_t start = line.find_first_not_of(" \t");
  if (start == std::string_view::npos || line[start] != '{') {
    request.find.asked.pattern = BytesFromUtf8(line).value_or(std::string(line));
    return request;
  }
  try {
    TakeObject(Json::parse(line), request);
  } catch (const Json::exception& error) {
    const std::string_view what = error.what();
    const size_t name = what.find("] ");
    request.problem = QuotedText(name == std::string_view::npos ? what : what.substr(name + 2));
  }
  if (!request.problem) {
    request.problem = request.find.Settle();
  }
  return request;
}

}  // namespace quorvane::cli
