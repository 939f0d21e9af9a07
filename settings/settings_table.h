// The one table of settings: every key with its default and how a damaged value is repaired.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace quorvane {

// In the order in which the start-up read reads them; behind them those that are read where they are used.
enum class Setting {
  LexiconFile,
  SaveFileName,
  SaveToFile,
  Literati,
  TimerInd,
  WriteToLogFile,
  SelectedChars,
  ExcludedChars,
  ScrabbleChars,
  RandomDisclaimer,
  MinLength,
  MaxLength,
  ListBold,
  ListItalic,
  ListFont,
  PrinterName,
  ColourMainBack,
  ColourMainText,
  ColourSelectionText,
  ColourStatusText,
  ColourTimerText,
  ColourLettersText,
  ColourListBack,
  ColourListText,
  WideScreen,
  Weblink,
  UseRegistry,
  PrinterColumns,
  FontName,
  FontSize,
  Italic,
  PaperSize,
  PrinterOrientation,
  SampleText,
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
  LiveResults,
  Reading,
  ExportFile,
  KeepHistory,
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

// What the start-up read does with a key besides reading, repairing, storing and applying it.
enum class StartUpRule {
  NotRead,       // Read where it is used.
  Plain,         // Nothing.
  LexiconFile,   // Falls back to the default lexicon when the file is missing.
  SaveFile,      // Completed with the program's directory; the file is made when it is missing.
  StoredIfYes,   // Stored only when it is "Yes".
  NotBelowLast,  // At least the value read just before it.
  ListFont,      // "Fixed" survives one restart.
  Printer,       // Must be one of the platform's printers.
};

// What an old initialisation file has to say of the key.
enum class OldFile {
  Nothing,
  Applied,    // Applied by the read of the file; not taken over.
  Converted,  // Taken over.
  Both,
};

struct SettingRow {
  Setting setting;
  std::string_view section;
  std::string_view key;
  std::string_view defaultValue;
  Repair repair = Repair::None;
  StartUpRule rule = StartUpRule::NotRead;
  std::string_view step = "";  // The label of its step of the start-up read, for an error report.
  OldFile oldFile = OldFile::Nothing;
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
inline constexpr std::string_view kUndefinedPrinter = "(undefined)";
inline bool IsYes(std::string_view value) {
  return value == "Yes";
}

// The results file as stored, completed with the program's directory when it is a bare name or missing.
std::string SaveFilePath(const SettingsStore& store, std::string_view programDirectory);

// The value as the start-up read takes it: "NotFound" and damaged values replaced.
std::string Repaired(Setting setting, std::string value);

}  // namespace quorvane
