// The printer choices in the settings store, as the print command and the setup window read them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/settings_table.h"

namespace quorvane {

inline constexpr int kMinFontSize = 6;
inline constexpr int kMaxFontSize = 25;
inline constexpr int kMaxColumns = 8;

enum class Paper { Letter, Legal, A4 };
// "Letter", "Legal" or "A4"; nothing for any other name.
std::optional<Paper> PaperOfName(std::string_view name);
std::string_view NameOf(Paper paper);

struct PrintSettings {
  int columns = 1;
  int fontSize = 12;
  std::string fontName = "Arial";
  bool italic = false;
  std::string paperName = "Letter";  // As stored: the print command leaves the printer's own paper for other names.
  bool landscape = false;
};

// For the print command: columns default to "1", and to "3" for anything but "1" to "8"; a font size that is none of
// "6" to "25" is 12. Nothing is stored.
PrintSettings ReadPrintSettings(const SettingsStore& store);

// For the setup window: columns default to "3"; sizes that are no number or out of range are 12, papers other than the
// three are "Letter". Everything but the printer's name is stored as read.
PrintSettings ReadSetupSettings(SettingsStore& store);

// The log text of the setup window's OK.
std::string UpdatedPrintSettingsText(const PrintSettings& settings, std::string_view printer);

}  // namespace quorvane
