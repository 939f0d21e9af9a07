#include "settings/settings_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/file.h"
#include "base/limits.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "settings/colours.h"

namespace quorvane {
namespace {

constexpr std::array kRows = {
    SettingRow{Setting::LexiconFile, "Locations", "LexiconFile", kDefaultLexiconName, Repair::ByItsReader,
               StartUpRule::LexiconFile, "PRB LexFile"},
    // Its default is "outlist.txt" in the program's directory.
    SettingRow{Setting::SaveFileName, "Locations", "SaveFileName", "outlist.txt", Repair::ByItsReader,
               StartUpRule::SaveFile, "PRF SaveFile", OldFile::Converted},
    SettingRow{Setting::SaveToFile, "Options", "SaveToFile", "Yes", Repair::YesNo, StartUpRule::Plain, "PRG STFInd",
               OldFile::Both},
    SettingRow{Setting::Literati, "Options", "Literati", "No", Repair::YesNo, StartUpRule::Plain, "PRH LitInd",
               OldFile::Applied},
    SettingRow{Setting::TimerInd, "Options", "TimerInd", "No", Repair::YesNo, StartUpRule::Plain, "PRI TimerInd",
               OldFile::Both},
    SettingRow{Setting::WriteToLogFile, "Options", "WriteToLogFile", "Yes", Repair::YesNo, StartUpRule::Plain,
               "PRJ WTLInd", OldFile::Both},
    SettingRow{Setting::SelectedChars, "Selection", "SelectedChars", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", Repair::Letters,
               StartUpRule::Plain, "PRK SCInd", OldFile::Both},
    SettingRow{Setting::ExcludedChars, "Selection", "ExcludedChars", "", Repair::LettersOrNone, StartUpRule::Plain,
               "PRL ECInd", OldFile::Both},
    SettingRow{Setting::ScrabbleChars, "Selection", "ScrabbleChars", "", Repair::Tiles, StartUpRule::Plain,
               "PRM ScCInd", OldFile::Both},
    SettingRow{Setting::RandomDisclaimer, "Options", "RandomDisclaimer", "Yes", Repair::YesNo, StartUpRule::StoredIfYes,
               "PRN RLDisc"},
    SettingRow{Setting::MinLength, "Settings", "MinLength", "1", Repair::Length, StartUpRule::Plain, "PRO MinLen",
               OldFile::Applied},
    SettingRow{Setting::MaxLength, "Settings", "MaxLength", "8", Repair::Length, StartUpRule::NotBelowLast,
               "PRP MaxLen", OldFile::Applied},
    SettingRow{Setting::ListBold, "Settings", "ListBold", "No", Repair::YesNo, StartUpRule::Plain, "PRQ ListBold",
               OldFile::Applied},
    SettingRow{Setting::ListItalic, "Settings", "ListItalic", "No", Repair::YesNo, StartUpRule::Plain, "PRR ListItal",
               OldFile::Applied},
    SettingRow{Setting::ListFont, "Settings", "ListFont", "Prop", Repair::ByItsReader, StartUpRule::ListFont,
               "PRS ListFont"},
    SettingRow{Setting::PrinterName, "Printer", "PrinterName", kUndefinedPrinter, Repair::ByItsReader,
               StartUpRule::Printer, "PRT PrNm", OldFile::Converted},
    SettingRow{Setting::ColourMainBack, "Colours", "MainBack", "&H8000000F", Repair::Colour, StartUpRule::Plain,
               "PRU Col1"},
    SettingRow{Setting::ColourMainText, "Colours", "MainText", "&H00000000", Repair::Colour, StartUpRule::Plain,
               "PRV Col2"},
    SettingRow{Setting::ColourSelectionText, "Colours", "SelectionText", "&H00C00000", Repair::Colour,
               StartUpRule::Plain, "PRW Col3"},
    SettingRow{Setting::ColourStatusText, "Colours", "StatusText", "&H000000FF", Repair::Colour, StartUpRule::Plain,
               "PRX Col4"},
    SettingRow{Setting::ColourTimerText, "Colours", "TimerText", "&H0000FFFF", Repair::Colour, StartUpRule::Plain,
               "PRY Col5"},
    SettingRow{Setting::ColourLettersText, "Colours", "LettersText", "&H00FF0000", Repair::Colour, StartUpRule::Plain,
               "PRZ Col6"},
    SettingRow{Setting::ColourListBack, "Colours", "ListBack", "&H00FFFFFF", Repair::Colour, StartUpRule::Plain,
               "PRAA Col7"},
    SettingRow{Setting::ColourListText, "Colours", "ListText", "&H00FF0000", Repair::Colour, StartUpRule::Plain,
               "PRAB Col8"},
    SettingRow{Setting::WideScreen, "Options", "WideScreen", "No", Repair::YesNo, StartUpRule::NotRead, "",
               OldFile::Converted},
    SettingRow{Setting::Weblink, "Options", "Weblink", "1"},
    SettingRow{Setting::UseRegistry, "Settings", "UseRegistry", ""},
    SettingRow{Setting::PrinterColumns, "Printer", "PrinterColumns", "1", Repair::ByItsReader, StartUpRule::NotRead, "",
               OldFile::Converted, "3"},
    SettingRow{Setting::FontName, "Printer", "FontName", "Arial", Repair::ByItsReader, StartUpRule::NotRead, "",
               OldFile::Converted},
    SettingRow{Setting::FontSize, "Printer", "FontSize", "12", Repair::ByItsReader, StartUpRule::NotRead, "",
               OldFile::Converted},
    SettingRow{Setting::Italic, "Printer", "Italic", "No", Repair::ByItsReader, StartUpRule::NotRead, "",
               OldFile::Converted},
    SettingRow{Setting::PaperSize, "Printer", "PaperSize", "Letter", Repair::ByItsReader, StartUpRule::NotRead, "",
               OldFile::Converted},
    SettingRow{Setting::PrinterOrientation, "Printer", "PrinterOrientation", "Portrait", Repair::ByItsReader,
               StartUpRule::NotRead, "", OldFile::Converted},
    SettingRow{Setting::SampleText, "Printer", "SampleText", "The quick brown fox jumps over the lazy dog"},
    SettingRow{Setting::ColourGroupText, "Colours", "GroupText", ""},
    SettingRow{Setting::CustomMainBack, "CustColours", "MainBack", "C0C0C0", Repair::ByItsReader},
    SettingRow{Setting::CustomMainText, "CustColours", "MainText", "000000", Repair::ByItsReader},
    SettingRow{Setting::CustomSelectionText, "CustColours", "SelectionText", "C000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomStatusText, "CustColours", "StatusText", "0000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomTimerText, "CustColours", "TimerText", "0080FF", Repair::ByItsReader},
    SettingRow{Setting::CustomLettersText, "CustColours", "LettersText", "FF0000", Repair::ByItsReader},
    SettingRow{Setting::CustomGroupText, "CustColours", "GroupText", "C000C0", Repair::ByItsReader},
    SettingRow{Setting::CustomListBack, "CustColours", "ListBack", "800000", Repair::ByItsReader, StartUpRule::NotRead,
               "", OldFile::Nothing, "FFFFFF"},
    SettingRow{Setting::CustomListText, "CustColours", "ListText", "00FFFF", Repair::ByItsReader, StartUpRule::NotRead,
               "", OldFile::Nothing, "FFFFFF"},
    SettingRow{Setting::Version, "Startup", "Version", ""},
    SettingRow{Setting::Compiled, "Startup", "Compiled", ""},
    // The section is written only once something in it is changed.
    SettingRow{Setting::LiveResults, "Workbench", "LiveResults", "No", Repair::YesNo},
    SettingRow{Setting::Reading, "Workbench", "Reading", "No", Repair::YesNo},
    SettingRow{Setting::ExportFile, "Workbench", "ExportFile", ""},
    SettingRow{Setting::KeepHistory, "Workbench", "KeepHistory", "Yes", Repair::YesNo},
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
  std::string value = store.Get(kApplicationName, row.section, row.key, row.defaultValue);
  const bool absent = value == kNotFound && row.repair != Repair::ByItsReader;
  return absent ? std::string(row.defaultValue) : value;
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
      return number ? std::to_string(std::clamp(*number, 1, kLongestLengthOffered)) : std::string(row.defaultValue);
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
