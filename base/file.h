// Reading and replacing whole files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/run_time_error.h"

namespace quorvane {

// A file operation that did not succeed: the numbered error, the path and the system's own words for the reason.
struct FileError {
  RunTimeError error;
  std::string path;
  std::string reason;

  // "PATH: reason".
  std::string Text() const { return path + ": " + reason; }
};

FileError FileErrorOfErrno(const std::string& path, int errnoValue);

bool FileExists(const std::string& path);
// Whether two paths name one file, links followed; one that is missing may be named in several ways.
bool IsSameFile(const std::string& a, const std::string& b);
// A directory joined with a name by one "/"; an empty directory leaves the name alone.
std::string JoinPath(std::string_view directory, std::string_view name);
// True when the value names a directory as well as a file: it holds "/" or "\".
bool HasDirectory(std::string_view value);
// Where a stored file name lies: a bare or relative one in `directory`, an absolute one where it says.
std::string ResolvePath(std::string_view directory, std::string_view value);
// The name of the entry of `directory` that equals `name` whatever the letter case; an exact match is preferred.
std::optional<std::string> FindIgnoringCase(const std::string& directory, std::string_view name);

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

// Collects bytes and hands them to a file in large pieces. A failed write is remembered; later ones do nothing.
class FileWriter {
 public:
  explicit FileWriter(std::FILE* file);
  void Write(std::string_view bytes);
  // Writes what is still held. 0, or the errno value of the first write that failed.
  int Finish();

  // For callers that build many small pieces: at least `kRoom` bytes at Cursor() may be filled, then Advance'd over.
  static constexpr size_t kRoom = size_t{1} << 15;
  char* Cursor();
  void Advance(size_t bytes) { used_ += bytes; }

 private:
  void Flush();

  std::FILE* file_;
  std::unique_ptr<char[]> buffer_;
  size_t used_ = 0;
  int error_ = 0;
};

// Why no file is to be named so: it holds control characters, which no list of files shows. Nothing for other names.
std::optional<std::string> WhyNoFileName(std::string_view name);

// Why a path that exists is no regular file ("it is a pipe, not a file"): opening one may wait for ever. Nothing for a
// regular file and for what is missing or can't be looked at; opening that says why.
std::optional<FileError> NotRegular(const std::string& path);
// The same for the files that are kept small; a larger one is none of the program's.
inline constexpr uintmax_t kMaxSmallFile = uintmax_t{4} << 20;
std::optional<FileError> NotSmallRegular(const std::string& path);

// Replaces the file at `path` by what `write` writes, whole or not at all: a temporary file in the same folder is
// written and renamed over the old one, without a forced flush. On failure the old file is as it was. Temporaries that
// processes left behind there when they were killed are removed. Owner and mode stay, and nobody reads a temporary whom
// the old file does not let. Links are followed. What is no regular file (a pipe, a terminal) is written to directly,
// and so is an open file of this process, whatever it is: /dev/stdout and /dev/fd/63 are written at their position.
std::optional<FileError> ReplaceFile(const std::string& path, const std::function<void(FileWriter&)>& write);

}  // namespace quorvane
