// The millisecond stopwatch that times searches and sorts.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>

#include "base/run_time_error.h"

namespace quorvane {

// A tick of a monotonic clock, in milliseconds; it wraps after 2^32.
using TickSource = std::function<uint32_t()>;
TickSource SystemTicks();

class CStopWatch {
 public:
  explicit CStopWatch(TickSource ticks = SystemTicks());

  // Milliseconds since the last Reset, or an overflow error after about 24.8 days.
  std::variant<int32_t, RunTimeError> Elapsed() const;
  // The same, with the largest value in place of the error.
  int32_t ElapsedOrLongest() const;

  // The periods of the platform's clock, in milliseconds; this one ticks every millisecond.
  static constexpr uint32_t MinimumResolution() { return 1; }
  static constexpr uint32_t MaximumResolution() { return 1; }

  // Starts anew on a fresh tick: waits, at most a millisecond, until the clock moves on.
  void Reset();

  // "HH:MM:SS", wrapping at a day; with the milliseconds behind a point when asked for.
  std::string FormatHMS(bool showMilliseconds) const;

 private:
  TickSource ticks_;
  uint32_t start_ = 0;
};

}  // namespace quorvane
