#include "results/summary.h"

#include "base/text.h"

namespace quorvane {
namespace {

constexpr int64_t kPositionLimit = 65536;

}  // namespace

std::string CountedNoun(int64_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + std::string(PluralS(count));
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

std::string SummaryStatus(int64_t count, std::string_view noun, const LengthRange& range) {
  return CountedNoun(count, noun) + " found" + RangeText(range);
}

std::string SummaryLog(int64_t count, std::string_view noun, std::string_view typed, const LengthRange& range) {
  return CountedNoun(count, noun) + " found using pattern '" + std::string(typed) + "'" + RangeText(range);
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
