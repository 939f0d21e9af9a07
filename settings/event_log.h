// The log: a plain-text diary, one entry a line.
#pragma once

#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/file.h"

namespace quorvane {

inline constexpr std::string_view kLogFileName = "quorvane.log";

// Local time.
using LocalClock = std::function<std::tm()>;
LocalClock SystemClock();

// The codes of the entries, at most 8 characters.
namespace event {
inline constexpr std::string_view kStart = "START";
inline constexpr std::string_view kWordCount = "WORDCT";
inline constexpr std::string_view kSelections = "SELECTS";
inline constexpr std::string_view kEnd = "END";
inline constexpr std::string_view kShutDown = "SHUTDOWN";
inline constexpr std::string_view kFileError = "FILEERR";
inline constexpr std::string_view kLexiconError = "LEX-ERR";
inline constexpr std::string_view kListRetired = "TXT_LEX";
inline constexpr std::string_view kEmptyOutput = "EMP-OUT";
inline constexpr std::string_view kIniError = "INI-ERR";
inline constexpr std::string_view kIniConverted = "INI-CNV";
inline constexpr std::string_view kIniDeleted = "INI-DEL";
inline constexpr std::string_view kError = "ERROR";
inline constexpr std::string_view kNewLexicon = "NEWLEX";
inline constexpr std::string_view kSavedLexicon = "SAVELEX";
inline constexpr std::string_view kInputError = "INPERR";
inline constexpr std::string_view kWords = "WORDS";
inline constexpr std::string_view kSaved = "SAVE";
inline constexpr std::string_view kSaveNameUpdated = "SAV-UPD";
inline constexpr std::string_view kNewLog = "NEWLOG";
inline constexpr std::string_view kLogActivated = "LOGACT";
inline constexpr std::string_view kLogDeactivated = "LOGDEA";
inline constexpr std::string_view kPrintUpdated = "PRT-UPD";
inline constexpr std::string_view kInvalidFont = "INVFN-PR";
inline constexpr std::string_view kInvalidPaper = "INVPS-PR";
inline constexpr std::string_view kPrintError = "ERROR-PR";
inline constexpr std::string_view kPrint = "PRINT";
inline constexpr std::string_view kWeblink = "WEBLINK";
}  // namespace event

class EventLog {
 public:
  // `onFailure` is called once, with the first failure to open or to write; the program goes on without the log.
  EventLog(std::string path, LocalClock clock, std::function<void(const FileError&)> onFailure);

  // Opens the file for appending, creating it if it is absent.
  std::optional<FileError> Open();
  // The indicator is "Yes" or "No"; without "Yes" no entry is written.
  void SetIndicator(bool on) { on_ = on; }
  bool Indicator() const { return on_; }

  // One entry; the file is closed and opened again behind it, so that it is on disk whatever happens then; of one that
  // could not be written whole nothing stays. An entry whose code contains "START" anywhere has a separator line in
  // front.
  // The failure, if it could not be written; nothing while the log is off or could not be opened at all.
  std::optional<FileError> Write(std::string_view code, std::string_view message);

  // A log that could not be opened before is tried again.
  std::optional<FileError> SwitchOn();
  void SwitchOff();
  // Empties the log. A file that can't be deleted is an error; the log then stays closed.
  std::optional<FileError> Clear();
  // The caption of the menu item that clears the log: with the date in the file's second field.
  std::string ClearCaption();
  void Close() { file_.reset(); }
  bool IsOpen() const { return file_ != nullptr; }

  const std::string& path() const { return path_; }

 private:
  void WriteLine(std::string_view line);
  // Nothing where the log is no regular file.
  std::optional<uintmax_t> Length() const;
  std::optional<FileError> Reopen(std::optional<uintmax_t> before);
  FileError Fail(int errnoValue);

  const std::string path_;
  const LocalClock clock_;
  const std::function<void(const FileError&)> onFailure_;
  FileHandle file_;
  bool on_ = true;
  bool failed_ = false;
};

// One entry as it stands in the file, without its line end.
std::string LogLine(std::string_view code, std::string_view message, const std::tm& time);

}  // namespace quorvane
