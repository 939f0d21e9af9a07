#include "settings/settings_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/file.h"
#include "base/text.h"
#include "settings/colours.h"

namespace quorvane {
namespace {

constexpr int kMaxLength = 60;

constexpr std::array kRows = {
    SettingRow{Setting::LexiconFile, "Locations", "LexiconFile", "words.lex", Repair::ByItsReader},
    // Its default is "outlist.txt" in the program's directory.
    SettingRow{Setting::SaveFileName, "Locations", "SaveFileName", "outlist.txt", Repair::ByItsReader},
    SettingRow{Setting::SaveToFile, "Options", "SaveToFile", "Yes", Repair::YesNo},
    SettingRow{Setting::Literati, "Options", "Literati", "No", Repair::YesNo},
    SettingRow{Setting::TimerInd, "Options", "TimerInd", "No", Repair::YesNo},
    SettingRow{Setting::WriteToLogFile, "Options", "WriteToLogFile", "Yes", Repair::YesNo},
    SettingRow{Setting::WideScreen, "Options", "WideScreen", "No", Repair::YesNo},
    SettingRow{Setting::RandomDisclaimer, "Options", "RandomDisclaimer", "Yes", Repair::YesNo},
    SettingRow{Setting::Weblink, "Options", "Weblink", "1", Repair::None},
    SettingRow{Setting::SelectedChars, "Selection", "SelectedChars", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", Repair::Letters},
    SettingRow{Setting::ExcludedChars, "Selection", "ExcludedChars", "", Repair::LettersOrNone},
    SettingRow{Setting::ScrabbleChars, "Selection", "ScrabbleChars", "", Repair::Tiles},
    SettingRow{Setting::MinLength, "Settings", "MinLength", "1", Repair::Length},
    SettingRow{Setting::MaxLength, "Settings", "MaxLength", "8", Repair::Length},
    SettingRow{Setting::ListBold, "Settings", "ListBold", "No", Repair::YesNo},
    SettingRow{Setting::ListItalic, "Settings", "ListItalic", "No", Repair::YesNo},
    SettingRow{Setting::ListFont, "Settings", "ListFont", "Prop", Repair::ByItsReader},
    SettingRow{Setting::UseRegistry, "Settings", "UseRegistry", "", Repair::None},
    SettingRow{Setting::PrinterName, "Printer", "PrinterName", "(undefined)", Repair::ByItsReader},
    SettingRow{Setting::PrinterColumns, "Printer", "PrinterColumns", "1", Repair::ByItsReader, "3"},
    SettingRow{Setting::FontName, "Printer", "FontName", "Arial", Repair::ByItsReader},
    SettingRow{Setting::FontSize, "Printer", "FontSize", "12", Repair::ByItsReader},
    SettingRow{Setting::Italic, "Printer", "Italic", "No", Repair::ByItsReader},
    SettingRow{Setting::PaperSize, "Printer", "PaperSize", "Letter", Repair::ByItsReader},
    SettingRow{Setting::PrinterOrientation, "Printer", "PrinterOrientation", "Portrait", Repair::ByItsReader},
    SettingRow{Setting::SampleText, "Printer", "SampleText", "The quick brown fox jumps over the lazy dog",
               Repair::None},
    SettingRow{Setting::ColourMainBack, "Colours", "MainBack", "&H8000000F", Repair::Colour},
    SettingRow{Setting::ColourMainText, "Colours", "MainText", "&H00000000", Repair::Colour},
    SettingRow{Setting::ColourSelectionText, "Colours", "SelectionText", "&H00C00000", Repair::Colour},
    SettingRow{Setting::ColourStatusText, "Colours", "StatusText", "&H000000FF", Repair::Colour},
    SettingRow{Setting::ColourTimerText, "Colours", "TimerText", "&H0000FFFF", Repair::Colour},
    SettingRow{Setting::ColourLettersText, "Colours", "LettersText", "&H00FF0000", Repair::Colour},
    SettingRow{Setting::ColourListBack, "Colours", "ListBack", "&H00FFFFFF", Repair::Colour},
    SettingRow{Setting::ColourListText, "Colours", "ListText", "&H00FF0000", Repair::Colour},
    SettingRow{Setting::ColourGroupText, "Colours", "GroupText", "", Repair::None},
    SettingRow{Setting::CustomMainBack, "CustColours", "MainBack", "C0C0C0", Repair::ByItsReader},
    SettingRow{Setting::CustomMainText, "CustColours", "MainText", "000000", Repair::ByItsReader},
    SettingRow{Setting::CustomSelectionText, "CustColours", "SelectionText", "C000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomStatusText, "CustColours", "StatusText", "0000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomTimerText, "CustColours", "TimerText", "0080FF", Repair::ByItsReader},
    SettingRow{Setting::CustomLettersText, "CustColours", "LettersText", "FF0000", Repair::ByItsReader},
    SettingRow{Setting::CustomGroupText, "CustColours", "GroupText", "C000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomListBack, "CustColours", "ListBack", "800000", Repair::ByItsReader, "FFFFFF"},
    SettingRow{Setting::CustomListText, "CustColours", "ListText", "00FFFF", Repair::ByItsReader, "FFFFFF"},
    SettingRow{Setting::Version, "Startup", "Version", "", Repair::None},
    SettingRow{Setting::Compiled, "Startup", "Compiled", "", Repair::None},
};
static_assert(
    [] {
      for (size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].setting != static_cast<Setting>(i)) {
          return false;
        }
      }
      return true;
    }(),
    "the rows stand in the order of the settings");

// The letters (and tiles) of a text; without repeats where `repeats` is false.
std::string KeepLetters(std::string_view text, bool tiles, bool repeats) {
  std::string kept;
  for (const char c : text) {
    const bool allowed = IsLetter(c) || (tiles && (c == '?' || c == '-'));
    if (allowed && (repeats || kept.find(c) == std::string::npos)) {
      kept += c;
    }
  }
  return kept;
}

// The number that a text states, rounded to the nearest whole one (ties to even).
std::optional<int> NumberOf(std::string_view text) {
  while (text.starts_with(' ')) {
    text.remove_prefix(1);
  }
  while (text.ends_with(' ')) {
    text.remove_suffix(1);
  }
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return static_cast<int>(std::nearbyint(std::clamp(value, -1000.0, 1000.0)));
}

}  // namespace

std::span<const SettingRow> SettingRows() {
  return kRows;
}

const SettingRow& RowOf(Setting setting) {
  return kRows[static_cast<size_t>(setting)];
}

std::string GetSetting(const SettingsStore& store, Setting setting) {
  const SettingRow& row = RowOf(setting);
  // Half a path may name another file of the user's.
  const bool isPath = setting == Setting::LexiconFile || setting == Setting::SaveFileName;
  if (isPath && store.IsDamaged(kApplicationName, row.section, row.key)) {
    return std::string(row.defaultValue);
  }
  return store.Get(kApplicationName, row.section, row.key, row.defaultValue);
}

std::string GetSettingWithOtherDefault(const SettingsStore& store, Setting setting) {
  const SettingRow& row = RowOf(setting);
  return store.Get(kApplicationName, row.section, row.key, row.otherDefault);
}

void SaveSetting(SettingsStore& store, Setting setting, std::string_view value) {
  const SettingRow& row = RowOf(setting);
  store.Save(kApplicationName, row.section, row.key, value);
}

std::string SaveFilePath(const SettingsStore& store, std::string_view programDirectory) {
  std::string path = GetSetting(store, Setting::SaveFileName);
  if (path.empty() || path == kNotFound) {
    path = RowOf(Setting::SaveFileName).defaultValue;
  }
  return HasDirectory(path) ? path : JoinPath(programDirectory, path);
}

std::string Repaired(Setting setting, std::string value) {
  const SettingRow& row = RowOf(setting);
  if (value == kNotFound) {
    value = row.defaultValue;
  }
  switch (row.repair) {
    case Repair::YesNo:
      return IsYes(value) ? "Yes" : "No";
    case Repair::Letters: {
      std::string letters = KeepLetters(value, false, false);
      return letters.empty() && !value.empty() ? std::string(row.defaultValue) : letters;
    }
    case Repair::LettersOrNone:
      return KeepLetters(value, false, false);
    case Repair::Tiles:
      return KeepLetters(value, true, true);
    case Repair::Length: {
      const auto number = NumberOf(value);
      return number ? std::to_string(std::clamp(*number, 1, kMaxLength)) : std::string(row.defaultValue);
    }
    case Repair::Colour:
      return ParseColour(value) ? value : std::string(row.defaultValue);
    case Repair::None:
    case Repair::ByItsReader:
      break;
  }
  return value;
}

}  // namespace quorvane
