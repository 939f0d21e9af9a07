#include "settings/start_up_read.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>

#include "base/file.h"
#include "base/text.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDefaultLexicon = "words.lex";
constexpr const char* kOldDefaultLexicon = "WORDS.TXT";
constexpr const char* kOldList = "words.txt";
constexpr const char* kRetiredList = "words_old.lex";
constexpr const char* kResetSaveName = "out.txt";
constexpr std::string_view kDummyLine = "Dummy file - this will be replaced by your selection.";
constexpr std::string_view kOldDummyLine = "Dummy file - will be replaced by your selection.";
constexpr std::string_view kUndefinedPrinter = "(undefined)";

// The steps whose rule is that of the settings table, between the save file and the list font. Their labels name them
// in an error report; none of them can fail.
constexpr std::array kPlainSteps = {
    Setting::SaveToFile,    Setting::Literati,      Setting::TimerInd,      Setting::WriteToLogFile,
    Setting::SelectedChars, Setting::ExcludedChars, Setting::ScrabbleChars,
};

constexpr std::array kColourSteps = {
    Setting::ColourMainBack,  Setting::ColourMainText,    Setting::ColourSelectionText, Setting::ColourStatusText,
    Setting::ColourTimerText, Setting::ColourLettersText, Setting::ColourListBack,      Setting::ColourListText,
};

// What the conversion takes over as it stands.
constexpr std::array kConverted = {
    Setting::SaveFileName,       Setting::SelectedChars, Setting::ExcludedChars, Setting::ScrabbleChars,
    Setting::SaveToFile,         Setting::TimerInd,      Setting::WideScreen,    Setting::WriteToLogFile,
    Setting::PrinterColumns,     Setting::FontSize,      Setting::Italic,        Setting::PaperSize,
    Setting::PrinterOrientation, Setting::FontName,      Setting::PrinterName,
};

// What the read of an old file looks up and applies by the rules of the table, besides lexicon, save file and printer.
constexpr std::array kOldSteps = {
    Setting::SaveToFile,    Setting::Literati,      Setting::TimerInd,      Setting::WriteToLogFile,
    Setting::SelectedChars, Setting::ExcludedChars, Setting::ScrabbleChars, Setting::MinLength,
    Setting::MaxLength,     Setting::ListBold,      Setting::ListItalic,
};

std::optional<RunTimeError> CreateDummy(const std::string& path, std::string_view line) {
  const auto error = ReplaceFile(path, [line](FileWriter& out) {
    out.Write(line);
    out.Write("\r\n");
  });
  if (!error) {
    return std::nullopt;
  }
  // A missing folder on the way is a path, not a file, that was not found.
  return error->error.number == kErrorFileNotFound ? MakeRunTimeError(kErrorPathNotFound) : error->error;
}

// Old files were written in the code page; a file's name is UTF-8.
std::string PathOfOldValue(const std::string& value) {
  return IsUtf8(value) ? value : Utf8FromBytes(value);
}

std::string AtLeast(const std::string& value, const std::string& minimum) {
  int number = 0;
  int least = 0;
  return ParseInteger(value, number) && ParseInteger(minimum, least) && number < least ? minimum : value;
}

}  // namespace

StartUpRead::StartUpRead(std::string programDirectory, SettingsStore& store, EventLog& log, StartUpSite& site)
    : directory_(std::move(programDirectory)), store_(store), log_(log), site_(site) {}

LexiconChoice StartUpRead::Run() {
  store_.BeginBatch();
  if (FindIgnoringCase(directory_, kOldIniFileName)) {
    ReadOldFile();
  }
  LexiconChoice lexicon = ReadStore();
  store_.EndBatch();
  return lexicon;
}

std::string StartUpRead::ApplyRepaired(Setting setting) {
  std::string value = Repaired(setting, GetSetting(store_, setting));
  SaveSetting(store_, setting, value);
  site_.Apply(setting, value);
  return value;
}

LexiconChoice StartUpRead::ReadStore() {
  // PRB and PRC: the lexicon. The value stays in the store as it is given; the path is the program's own affair.
  LexiconChoice lexicon;
  lexicon.setting = Repaired(Setting::LexiconFile, GetSetting(store_, Setting::LexiconFile));
  SaveSetting(store_, Setting::LexiconFile, lexicon.setting);
  lexicon.path = ResolvePath(directory_, lexicon.setting);
  if (lexicon.setting.empty() || !FileExists(lexicon.path)) {
    site_.ShowBox("",
                  "Lexicon file specified \r\n\r\n" + lexicon.path +
                      "\r\n\r\ncould not be found.  Defaulting to use 'words.lex'.",
                  true);
    log_.Write(event::kLexiconError, "Lexicon file " + lexicon.path + " could not be found; defaulting to 'words.lex'");
    lexicon = {kDefaultLexicon, JoinPath(directory_, kDefaultLexicon)};
    SaveSetting(store_, Setting::LexiconFile, lexicon.setting);
  }
  site_.Apply(Setting::LexiconFile, lexicon.setting);
  RetireOldList("PRD RenameFile");

  // PRE and PRF: the save file.
  const std::string saveFile = SaveFilePath(store_, directory_);
  SaveSetting(store_, Setting::SaveFileName, saveFile);
  CheckSaveFile(saveFile, kDummyLine, false);

  for (const Setting setting : kPlainSteps) {
    ApplyRepaired(setting);
  }
  // PRN: only a "Yes" is written back.
  const std::string disclaimer = Repaired(Setting::RandomDisclaimer, GetSetting(store_, Setting::RandomDisclaimer));
  if (IsYes(disclaimer)) {
    SaveSetting(store_, Setting::RandomDisclaimer, disclaimer);
  }
  site_.Apply(Setting::RandomDisclaimer, disclaimer);

  const std::string minLength = ApplyRepaired(Setting::MinLength);
  const std::string maxLength =
      AtLeast(Repaired(Setting::MaxLength, GetSetting(store_, Setting::MaxLength)), minLength);
  SaveSetting(store_, Setting::MaxLength, maxLength);
  site_.Apply(Setting::MaxLength, maxLength);
  ApplyRepaired(Setting::ListBold);
  ApplyRepaired(Setting::ListItalic);

  // PRS: a fixed-pitch list survives one restart.
  const bool fixed = GetSetting(store_, Setting::ListFont) == "Fixed";
  SaveSetting(store_, Setting::ListFont, fixed ? "" : "Prop");
  site_.Apply(Setting::ListFont, fixed ? "Fixed" : "Prop");

  ReadPrinter();
  for (const Setting setting : kColourSteps) {
    ApplyRepaired(setting);
  }
  return lexicon;
}

void StartUpRead::RetireOldList(const std::string& label) {
  const std::string old = JoinPath(directory_, kOldList);
  const std::string retired = JoinPath(directory_, kRetiredList);
  if (!FileExists(old)) {
    return;
  }
  if (std::rename(old.c_str(), retired.c_str()) != 0) {
    Report(RunTimeErrorOfErrno(errno), label);
    return;
  }
  log_.Write(event::kListRetired, "Old lexicon file 'words.txt' was renamed to 'words_old.lex'");
}

void StartUpRead::CheckSaveFile(const std::string& name, std::string_view dummyLine, bool old) {
  const std::string path = ResolvePath(directory_, name);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  std::optional<RunTimeError> problem;
  if (fs::is_directory(status)) {
    problem = MakeRunTimeError(kErrorPathFileAccess);
  } else if (!fs::exists(status)) {
    problem = CreateDummy(path, dummyLine);
    if (!problem) {
      log_.Write(event::kEmptyOutput, "An empty output file, " + path + ", was created");
    }
  }
  if (!problem) {
    site_.Apply(Setting::SaveFileName, name);
    return;
  }
  if (!old) {
    SaveSetting(store_, Setting::SaveFileName, kResetSaveName);
  }
  site_.Apply(Setting::SaveFileName, kResetSaveName);
  log_.Write(event::kError, "RS/" + std::to_string(problem->number) + ": " + problem->description +
                                " at Pos PRF SaveFile corrected; SaveFileName reset");
}

// A printer that has gone away is no longer the chosen one.
void StartUpRead::ReadPrinter() {
  const std::string stored = GetSetting(store_, Setting::PrinterName);
  // Listing the printers takes its time; where none was chosen there is none to look for.
  const bool chosen = stored != kUndefinedPrinter && stored != kNotFound && !stored.empty();
  const StartUpSite::Printers printers = chosen ? site_.ListPrinters() : StartUpSite::Printers{};
  if (printers.error) {
    Report(MakeRunTimeError(*printers.error), "PRT PrNm");
  }
  const bool there = std::find(printers.names.begin(), printers.names.end(), stored) != printers.names.end();
  const std::string current = there ? stored : std::string(kUndefinedPrinter);
  SaveSetting(store_, Setting::PrinterName, current);
  site_.Apply(Setting::PrinterName, current);
}

void StartUpRead::ReadOldFile() {
  OldIniFile old;
  const OldIniFile::ReadResult result = old.Read(directory_, kOldIniBaseName);
  if (result.code != OldIniFile::kReadOk) {
    site_.ShowBox(result.boxTitle, result.boxText, false);
    site_.ShowBox("", "INI File Load error.  Return Code is: " + std::to_string(result.code), false);
    log_.Write(event::kIniError, "Error loading INI file - return code " + std::to_string(result.code));
    // A file that could not be read is neither taken over nor deleted.
    return;
  }
  std::string lexicon = PathOfOldValue(old.LookUp(RowOf(Setting::LexiconFile).key));
  if (lexicon == kNotFound || lexicon.empty()) {
    lexicon = kOldDefaultLexicon;
  }
  // Names in an old file mean the same file in any letter case.
  const auto named = HasDirectory(lexicon) ? std::nullopt : FindIgnoringCase(directory_, lexicon);
  const std::string path = named ? JoinPath(directory_, *named) : ResolvePath(directory_, lexicon);
  if (!FileExists(path)) {
    site_.ShowBox("", "Lexicon file specified in INI File " + path + "could not be found.", true);
    log_.Write(event::kLexiconError, "Lexicon file " + path + " could not be found");
  }
  RetireOldList("PRD RenameFile");
  std::string saveFile = PathOfOldValue(old.LookUp(RowOf(Setting::SaveFileName).key));
  if (saveFile == kNotFound || saveFile.empty()) {
    saveFile = RowOf(Setting::SaveFileName).defaultValue;
  }
  if (!HasDirectory(saveFile)) {
    saveFile = JoinPath(directory_, saveFile);
  }
  old.Store(RowOf(Setting::SaveFileName).key, saveFile);
  CheckSaveFile(saveFile, kOldDummyLine, true);
  for (const Setting setting : kOldSteps) {
    site_.Apply(setting, Repaired(setting, old.LookUp(RowOf(setting).key)));
  }
  Convert(old);
}

void StartUpRead::Convert(const OldIniFile& old) {
  SaveSetting(store_, Setting::LexiconFile, kDefaultLexicon);
  for (const Setting setting : kConverted) {
    SaveSetting(store_, setting, old.LookUp(RowOf(setting).key));
  }
  SaveSetting(store_, Setting::UseRegistry, "Yes");
  log_.Write(event::kIniConverted, "INI conversion");
  // What was taken over is on disk before its source goes.
  const bool stored = store_.Flush();
  const auto found = FindIgnoringCase(directory_, kOldIniFileName);
  if (!found) {
    return;
  }
  const std::string path = JoinPath(directory_, *found);
  if (!stored) {
    ReportErrors(path + " was not removed: its values could not be stored.");
    return;
  }
  std::error_code error;
  if (!fs::remove(path, error) || error) {
    ReportErrors(path + " was converted but could not be removed: " + error.message());
    return;
  }
  log_.Write(event::kIniDeleted, "INI file removed");
}

void StartUpRead::Report(const RunTimeError& error, std::string_view label) {
  if (IsPrinterError(error.number)) {
    ReportErrors(PrinterErrorText("RS", error.number) + " (Pos " + std::string(label) + ")");
  } else {
    ReportErrors("RS/" + std::to_string(error.number) + ": " + error.description + " at Pos " + std::string(label));
  }
}

void StartUpRead::ReportErrors(const std::string& text) {
  site_.ShowBox("", text, false);
  log_.Write(event::kError, text);
}

}  // namespace quorvane
