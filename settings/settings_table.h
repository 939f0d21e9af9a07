// The one table of settings: every key with its default and how a damaged value is repaired.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace quorvane {

enum class Setting {
  LexiconFile,
  SaveFileName,
  SaveToFile,
  Literati,
  TimerInd,
  WriteToLogFile,
  WideScreen,
  RandomDisclaimer,
  Weblink,
  SelectedChars,
  ExcludedChars,
  ScrabbleChars,
  MinLength,
  MaxLength,
  ListBold,
  ListItalic,
  ListFont,
  UseRegistry,
  PrinterName,
  PrinterColumns,
  FontName,
  FontSize,
  Italic,
  PaperSize,
  PrinterOrientation,
  SampleText,
  ColourMainBack,
  ColourMainText,
  ColourSelectionText,
  ColourStatusText,
  ColourTimerText,
  ColourLettersText,
  ColourListBack,
  ColourListText,
  ColourGroupText,
  CustomMainBack,
  CustomMainText,
  CustomSelectionText,
  CustomStatusText,
  CustomTimerText,
  CustomLettersText,
  CustomGroupText,
  CustomListBack,
  CustomListText,
  Version,
  Compiled,
};

// How a value read at start is repaired. Everywhere "NotFound" counts as absent.
enum class Repair {
  None,
  YesNo,    // Anything but "Yes" is "No".
  Letters,  // Letters without repeats; never emptied by the repair.
  LettersOrNone,
  Tiles,        // Letters, "?" and "-".
  Length,       // A whole number, 1 to 60.
  Colour,       // "&H" and eight hexadecimal digits.
  ByItsReader,  // Where it is read, by a rule of its own.
};

struct SettingRow {
  Setting setting;
  std::string_view section;
  std::string_view key;
  std::string_view defaultValue;
  Repair repair;
  // A second default, where another place that reads the key has one of its own; else empty.
  std::string_view otherDefault = "";
};

std::span<const SettingRow> SettingRows();
const SettingRow& RowOf(Setting setting);

// Get and save by row. Get returns the row's default when the key is absent.
std::string GetSetting(const SettingsStore& store, Setting setting);
// The same with the second default of the row: print columns in the setup window, custom colours from a colour sample.
std::string GetSettingWithOtherDefault(const SettingsStore& store, Setting setting);
void SaveSetting(SettingsStore& store, Setting setting, std::string_view value);
inline void SaveYesNo(SettingsStore& store, Setting setting, bool yes) {
  SaveSetting(store, setting, yes ? "Yes" : "No");
}

inline constexpr std::string_view kNotFound = "NotFound";
inline bool IsYes(std::string_view value) {
  return value == "Yes";
}

// The results file as stored, completed with the program's directory when it is a bare name or missing.
std::string SaveFilePath(const SettingsStore& store, std::string_view programDirectory);

// The value as the start-up read takes it: "NotFound" and damaged values replaced.
std::string Repaired(Setting setting, std::string value);

}  // namespace quorvane
