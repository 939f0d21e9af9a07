// save_setting FILE VALUE: stores a setting as the window does; 1 when that failed.
#include "base/window/qt_text.h"
#include "settings/window/ini_store.h"

int main(int, char** argv) {
  bool failed = false;
  quorvane::IniStore store(quorvane::FromText(argv[1]), [&failed](const quorvane::FileError&) { failed = true; });
  store.Save(quorvane::kApplicationName, "Options", "TimerInd", argv[2]);
  return failed ? 1 : 0;
}
