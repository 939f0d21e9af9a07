// The program's version and build date, as the caption, the log and the about box show them.
#pragma once

#include <string>

namespace quorvane {

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;
inline constexpr int kVersionRevision = 0;

// Major, ".", minor, and "." and the revision only when the revision is not 0. Nothing is padded: 3, 3, 0 gives "3.3".
inline std::string VersionText(int major, int minor, int revision) {
  std::string text = std::to_string(major) + "." + std::to_string(minor);
  if (revision != 0) {
    text += "." + std::to_string(revision);
  }
  return text;
}

inline std::string VersionText() {
  return VersionText(kVersionMajor, kVersionMinor, kVersionRevision);
}

// The day of the build in 11 characters, "05 Mar 2026". `compilerDate` has the form of __DATE__, "Mar  5 2026".
inline std::string BuildDate(const std::string& compilerDate = __DATE__) {
  std::string day = compilerDate.substr(4, 2);
  if (day[0] == ' ') {
    day[0] = '0';
  }
  return day + " " + compilerDate.substr(0, 3) + " " + compilerDate.substr(7, 4);
}

}  // namespace quorvane
