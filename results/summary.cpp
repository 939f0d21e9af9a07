#include "results/summary.h"

#include "base/text.h"
#include "search/conditions.h"
#include "search/pattern.h"

namespace quorvane {
namespace {

constexpr int64_t kPositionLimit = 65536;

}  // namespace

std::string CountedNoun(size_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + std::string(PluralS(static_cast<int64_t>(count)));
}

std::string RangeText(const LengthRange& range) {
  if (range.any) {
    return "";
  }
  if (range.min == range.max) {
    return "  (of length " + std::to_string(range.min) + " letters)";
  }
  return "  (of " + std::to_string(range.min) + " to " + std::to_string(range.max) + " letters in length)";
}

std::string SummaryStatus(size_t count, const Search& search) {
  return CountedNoun(count, search.noun) + " found" + RangeText(search.lengths);
}

std::string SummaryLog(size_t count, const Search& search) {
  return CountedNoun(count, search.noun) + " found using pattern '" + search.text + "'" + RangeText(search.lengths);
}

std::string EmptyListText(const Search& search) {
  std::string text;
  const auto add = [&text](const std::string& part) {
    text += (text.empty() ? "Nothing found. In force: " : "; ") + part;
  };
  const LengthRange& lengths = search.lengths;
  if (!lengths.any) {
    add(lengths.min == lengths.max ? std::to_string(lengths.min) + " letters"
                                   : std::to_string(lengths.min) + " to " + std::to_string(lengths.max) + " letters");
  }
  for (const ListKind kind : ListsNamedIn(search)) {
    add(std::string(FactsOf(kind).name) + " list " + BracketForm(search.lists.Of(kind)));
  }
  for (const Condition& condition : search.conditions) {
    add(ConditionText(condition));
  }
  return text;
}

std::string WritingStatus(size_t count, const Search& search) {
  return "Writing " + CountedNoun(count, search.noun) + " to file ...";
}

std::string HeaderLine(size_t count, const Search& search) {
  const std::string found = CountedNoun(count, search.noun) + " found";
  if (search.text.starts_with('%')) {
    const SequenceParts parts = SplitSequence(search.text);
    return found + " (" + search.text.substr(1, 1) + (parts.orMore ? " or more " : " ") + "of '" + parts.letters + "')";
  }
  return search.text.starts_with('~') ? found : found + " matching the word pattern \"" + search.text + "\"";
}

std::string TimeText(int64_t milliseconds) {
  const int64_t hundredths = (milliseconds + 5) / 10;
  const std::string digits = std::to_string(hundredths % 100);
  return "Time = " + std::to_string(hundredths / 100) + "." + (digits.size() < 2 ? "0" : "") + digits + "s";
}

std::string PositionText(int64_t position, int64_t length, int64_t foundCount) {
  const std::string first = foundCount >= kPositionLimit ? " " : "Word # " + std::to_string(position);
  return first + "\r\nLength : " + std::to_string(length);
}

}  // namespace quorvane
