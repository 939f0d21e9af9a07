#include "settings/event_log.h"

#include <array>
#include <cerrno>
#include <filesystem>

namespace quorvane {
namespace {

constexpr size_t kCodeWidth = 8;
constexpr size_t kSeparatorWidth = 80;
constexpr size_t kDateColumn = 9;  // From 0, in an entry.
constexpr size_t kDateWidth = 8;

// The next field of a file: up to a comma or a line end. Nothing at the end of the file.
std::optional<std::string> ReadField(std::FILE* file) {
  std::string field;
  int c = std::fgetc(file);
  if (c == EOF) {
    return std::nullopt;
  }
  for (; c != EOF && c != ',' && c != '\n'; c = std::fgetc(file)) {
    if (c != '\r') {
      field += static_cast<char>(c);
    }
  }
  return field;
}

}  // namespace

LocalClock SystemClock() {
  return [] {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
  };
}

std::string LogLine(std::string_view code, std::string_view message, const std::tm& time) {
  std::string line(code.substr(0, kCodeWidth));
  line.resize(kCodeWidth, ' ');
  std::array<char, 32> stamp{};
  std::strftime(stamp.data(), stamp.size(), " %m/%d/%y %H:%M:%S  ", &time);
  line += stamp.data();
  line += message;
  return line;
}

EventLog::EventLog(std::string path, LocalClock clock, std::function<void(const FileError&)> onFailure)
    : path_(std::move(path)), clock_(std::move(clock)), onFailure_(std::move(onFailure)) {}

std::optional<FileError> EventLog::Open() {
  file_.reset(std::fopen(path_.c_str(), "ab"));
  return file_ == nullptr ? std::optional(Fail(errno)) : std::nullopt;
}

std::optional<uintmax_t> EventLog::Length() const {
  std::error_code error;
  const bool regular = std::filesystem::is_regular_file(path_, error);
  const uintmax_t length = regular ? std::filesystem::file_size(path_, error) : 0;
  return regular && !error ? std::optional(length) : std::nullopt;
}

std::optional<FileError> EventLog::Reopen(std::optional<uintmax_t> before) {
  if (!IsOpen()) {
    return std::nullopt;
  }
  // What is still held is written when the file is closed: a full disk shows here.
  const bool written = std::ferror(file_.get()) == 0;
  const bool closed = std::fclose(file_.release()) == 0;
  const int error = errno;
  if ((!written || !closed) && before && Length() > before) {  // Takes back the part of the entry that was written.
    std::error_code ignored;
    std::filesystem::resize_file(path_, *before, ignored);
  }
  Open();
  return written && closed ? std::nullopt : std::optional(Fail(error));
}

FileError EventLog::Fail(int errnoValue) {
  FileError error = FileErrorOfErrno(path_, errnoValue);
  if (!failed_) {
    failed_ = true;
    onFailure_(error);
  }
  return error;
}

void EventLog::WriteLine(std::string_view line) {
  if (IsOpen()) {
    std::fwrite(line.data(), 1, line.size(), file_.get());
    std::fwrite("\r\n", 1, 2, file_.get());
  }
}

std::optional<FileError> EventLog::Write(std::string_view code, std::string_view message) {
  if (!on_) {
    return std::nullopt;
  }
  const auto before = Length();
  if (code.find(event::kStart) != std::string_view::npos) {
    WriteLine(std::string(kSeparatorWidth, '='));
  }
  WriteLine(LogLine(code, message, clock_()));
  return Reopen(before);
}

std::optional<FileError> EventLog::SwitchOn() {
  on_ = true;
  if (!IsOpen()) {
    if (auto error = Open()) {
      return error;
    }
  }
  return Write(event::kLogActivated, "Logging reactivated");
}

void EventLog::SwitchOff() {
  Write(event::kLogDeactivated, "Logging deactivated");
  std::string separator;
  while (separator.size() < kSeparatorWidth) {
    separator += "==--";
  }
  const auto before = Length();
  WriteLine(separator);
  Reopen(before);
  on_ = false;
}

std::optional<FileError> EventLog::Clear() {
  Close();
  std::error_code error;
  if (std::filesystem::is_directory(path_, error)) {
    return FileErrorOfErrno(path_, EISDIR);
  }
  std::filesystem::remove(path_, error);
  if (error) {
    return FileErrorOfErrno(path_, error.value());
  }
  if (auto failure = Open()) {
    return failure;
  }
  return Write(event::kNewLog, "New log file started");
}

std::string EventLog::ClearCaption() {
  const bool wasOpen = IsOpen();
  Close();
  std::string caption = "&Clear log file (empty)";
  if (const FileHandle reader(std::fopen(path_.c_str(), "rb")); reader != nullptr) {
    const auto first = ReadField(reader.get());
    const auto second = first ? ReadField(reader.get()) : std::nullopt;
    if (second) {
      const std::string date = second->size() > kDateColumn ? second->substr(kDateColumn, kDateWidth) : "";
      caption = "&Clear log file (created " + date + ")";
    }
  }
  if (wasOpen) {
    Open();
  }
  return caption;
}

}  // namespace quorvane
