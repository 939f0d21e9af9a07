#include "settings/start_up_read.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "base/file.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOldDefaultLexicon = "WORDS.TXT";
constexpr const char* kOldList = "words.txt";
constexpr const char* kRetiredList = "words_old.lex";
constexpr std::string_view kRetireStep = "PRD RenameFile";
constexpr const char* kResetSaveName = "out.txt";
constexpr std::string_view kDummyLine = "Dummy file - this will be replaced by your selection.";
constexpr std::string_view kOldDummyLine = "Dummy file - will be replaced by your selection.";

bool IsApplied(OldFile oldFile) {
  return oldFile == OldFile::Applied || oldFile == OldFile::Both;
}

bool IsConverted(OldFile oldFile) {
  return oldFile == OldFile::Converted || oldFile == OldFile::Both;
}

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
  const SettingsBatch batch(store_);
  if (FindIgnoringCase(directory_, kOldIniFileName)) {
    ReadOldFile();
  }
  ReadStore();
  return lexicon_;
}

void StartUpRead::ReadStore() {
  for (const SettingRow& row : SettingRows()) {
    Read(row);
  }
}

void StartUpRead::Store(const SettingRow& row, const std::string& value) {
  SaveSetting(store_, row.setting, value);
}

void StartUpRead::Apply(const SettingRow& row, const std::string& value) {
  last_ = value;
  if (!site_.Apply(row.setting, value)) {
    Report(MakeRunTimeError(kErrorInvalidProcedureCall), row.step);
  }
}

void StartUpRead::Read(const SettingRow& row) {
  std::string value = Repaired(row.setting, GetSetting(store_, row.setting));
  switch (row.rule) {
    case StartUpRule::NotRead:
      return;
    case StartUpRule::LexiconFile:
      ReadLexicon();
      return;
    case StartUpRule::SaveFile:
      ReadSaveFile();
      return;
    case StartUpRule::Printer:
      ReadPrinter();
      return;
    case StartUpRule::ListFont: {
      const bool fixed = value == "Fixed";
      Store(row, fixed ? "" : "Prop");
      Apply(row, fixed ? value : "Prop");
      return;
    }
    case StartUpRule::StoredIfYes:
      if (IsYes(value)) {
        Store(row, value);
      }
      break;
    case StartUpRule::NotBelowLast:
      value = AtLeast(value, last_);
      [[fallthrough]];
    case StartUpRule::Plain:
      Store(row, value);
  }
  Apply(row, value);
}

// The value stays in the store as it is given; the path is the program's own affair.
void StartUpRead::ReadLexicon() {
  const SettingRow& row = RowOf(Setting::LexiconFile);
  lexicon_.setting = Repaired(row.setting, GetSetting(store_, row.setting));
  Store(row, lexicon_.setting);
  lexicon_.path = ResolvePath(directory_, lexicon_.setting);
  if (lexicon_.setting.empty() || !FileExists(lexicon_.path)) {
    site_.ShowBox("",
                  "Lexicon file specified \r\n\r\n" + lexicon_.path +
                      "\r\n\r\ncould not be found.  Defaulting to use 'words.lex'.",
                  true);
    log_.Write(event::kLexiconError,
               "Lexicon file " + lexicon_.path + " could not be found; defaulting to 'words.lex'");
    lexicon_ = {kDefaultLexiconName, JoinPath(directory_, kDefaultLexiconName)};
    Store(row, lexicon_.setting);
  }
  Apply(row, lexicon_.setting);
  RetireOldList();
}

void StartUpRead::ReadSaveFile() {
  const std::string saveFile = SaveFilePath(store_, directory_);
  Store(RowOf(Setting::SaveFileName), saveFile);
  CheckSaveFile(saveFile, kDummyLine, false);
}

void StartUpRead::RetireOldList() {
  const std::string old = JoinPath(directory_, kOldList);
  const std::string retired = JoinPath(directory_, kRetiredList);
  if (!FileExists(old)) {
    return;
  }
  if (std::rename(old.c_str(), retired.c_str()) != 0) {
    Report(RunTimeErrorOfErrno(errno), kRetireStep);
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
    Apply(RowOf(Setting::SaveFileName), name);
    return;
  }
  if (!old) {
    SaveSetting(store_, Setting::SaveFileName, kResetSaveName);
  }
  Apply(RowOf(Setting::SaveFileName), kResetSaveName);
  log_.Write(event::kError, "RS/" + std::to_string(problem->number) + ": " + problem->description + " at Pos " +
                                std::string(RowOf(Setting::SaveFileName).step) + " corrected; SaveFileName reset");
}

// A printer that has gone away is no longer the chosen one; one that could not be looked for is.
void StartUpRead::ReadPrinter() {
  const SettingRow& row = RowOf(Setting::PrinterName);
  const std::string stored = GetSetting(store_, row.setting);
  // Listing the printers takes its time; where none was chosen there is none to look for.
  const bool chosen = stored != kUndefinedPrinter && stored != kNotFound && !stored.empty();
  const StartUpSite::Printers printers = chosen ? site_.ListPrinters() : StartUpSite::Printers{};
  if (printers.error) {
    Report(MakeRunTimeError(*printers.error), row.step);
  }
  if (printers.silent) {
    log_.Write(event::kPrintError, "The printing system does not answer; the printer stays '" + stored + "'");
  }
  const bool there =
      printers.silent || std::find(printers.names.begin(), printers.names.end(), stored) != printers.names.end();
  const std::string current = there ? stored : std::string(kUndefinedPrinter);
  Store(row, current);
  Apply(row, current);
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
  RetireOldList();
  std::string saveFile = PathOfOldValue(old.LookUp(RowOf(Setting::SaveFileName).key));
  if (saveFile == kNotFound || saveFile.empty()) {
    saveFile = RowOf(Setting::SaveFileName).defaultValue;
  }
  if (!HasDirectory(saveFile)) {
    saveFile = JoinPath(directory_, saveFile);
  }
  old.Store(RowOf(Setting::SaveFileName).key, saveFile);
  CheckSaveFile(saveFile, kOldDummyLine, true);
  for (const SettingRow& row : SettingRows()) {
    if (IsApplied(row.oldFile)) {
      Apply(row, Repaired(row.setting, old.LookUp(row.key)));
    }
  }
  Convert(old);
}

void StartUpRead::Convert(const OldIniFile& old) {
  SaveSetting(store_, Setting::LexiconFile, kDefaultLexiconName);
  for (const SettingRow& row : SettingRows()) {
    if (IsConverted(row.oldFile)) {
      Store(row, old.LookUp(row.key));
    }
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
