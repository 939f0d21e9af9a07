// What the window is given: everything outside it that it talks to.
#pragma once

#include <functional>
#include <limits>
#include <string>

#include "base/window/door.h"
#include "search/scan.h"
#include "settings/event_log.h"
#include "settings/settings_store.h"
#include "settings/stop_watch.h"

namespace quorvane {

struct Services {
  SettingsStore& settings;
  EventLog& log;
  Door& door;
  RandomSource& random;
  std::string programDirectory;
  std::string settingsFile;  // Shown in the about box.
  LocalClock clock = SystemClock();
  TickSource ticks = SystemTicks();
  // Ends the process, the last step of the shutdown.
  std::function<void(int status)> endProcess = [](int) {};
  // How many entries the screen list takes; lowered by tests only.
  size_t screenCapacity = std::numeric_limits<size_t>::max();
};

}  // namespace quorvane
