#include "settings/stop_watch.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <limits>

namespace quorvane {

TickSource SystemTicks() {
  return [] {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
  };
}

CStopWatch::CStopWatch(TickSource ticks) : ticks_(std::move(ticks)) {
  Reset();
}

std::variant<int32_t, RunTimeError> CStopWatch::Elapsed() const {
  const uint32_t elapsed = ticks_() - start_;
  if (elapsed > static_cast<uint32_t>(std::numeric_limits<int32_t>::max())) {
    return MakeRunTimeError(kErrorOverflow);
  }
  return static_cast<int32_t>(elapsed);
}

int32_t CStopWatch::ElapsedOrLongest() const {
  const auto elapsed = Elapsed();
  const auto* milliseconds = std::get_if<int32_t>(&elapsed);
  return milliseconds != nullptr ? *milliseconds : std::numeric_limits<int32_t>::max();
}

void CStopWatch::Reset() {
  const uint32_t first = ticks_();
  while (ticks_() == first) {
  }
  start_ = ticks_();
}

std::string CStopWatch::FormatHMS(bool showMilliseconds) const {
  const int32_t elapsed = ElapsedOrLongest();
  const int32_t seconds = elapsed / 1000;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
  std::string result = text.data();
  if (showMilliseconds) {
    std::snprintf(text.data(), text.size(), ".%03d", elapsed % 1000);
    result += text.data();
  }
  return result;
}

}  // namespace quorvane
