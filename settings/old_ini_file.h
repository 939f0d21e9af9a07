// The initialisation file of earlier versions: read once, taken over into the settings store, then deleted.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/file.h"

namespace quorvane {

inline constexpr std::string_view kOldIniBaseName = "quorvane";
inline constexpr std::string_view kOldIniFileName = "quorvane.ini";

class OldIniFile {
 public:
  static constexpr size_t kEntries = 201;  // Entry 0 is the marker, 1 to 200 hold keys.
  static constexpr int kReadOk = 0;
  static constexpr int kStored = 40;
  static constexpr int kNotLoaded = 12;
  static constexpr int kNoKey = 36;

  struct ReadResult {
    int code = kReadOk;  // 0, or the number of the error.
    // The message box of a failure.
    std::string boxTitle;
    std::string boxText;
  };
  // Reads the file of that base name in `directory`, whatever its letter case. Fields end at line ends and commas;
  // those that begin with ";" or "[" are skipped, the others are cut at their first "=". Entries past 200 are dropped.
  // What is no regular file or too large for one (NotSmallRegular) is not read.
  ReadResult Read(const std::string& directory, std::string_view baseName);

  bool Loaded() const;
  // The value of the first entry of that key; "NotFound" when there is none, "Invalid" for an empty key.
  std::string LookUp(std::string_view key) const;
  // Sets the entry of the key, or takes the first free one: 40; 36 for an empty key; 12 when nothing was read.
  int Store(std::string_view key, std::string_view value);

 private:
  std::array<std::string, kEntries> keys_;
  std::array<std::string, kEntries> values_;
};

}  // namespace quorvane
