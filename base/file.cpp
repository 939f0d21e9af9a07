#include "base/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "base/text.h"

namespace quorvane {
namespace fs = std::filesystem;
namespace {

constexpr size_t kBufferSize = size_t{1} << 18;
constexpr int kMaxLinks = 40;
// A temporary's name is ".quorvane-PROCESS-NUMBER.tmp".
constexpr std::string_view kTemporaryPrefix = ".quorvane-";
constexpr std::string_view kTemporarySuffix = ".tmp";

std::string FolderOf(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? "." : folder.string();
}

// Whether the file is a temporary of a process that no longer runs.
bool IsLeftBehind(std::string_view name) {
  if (!name.starts_with(kTemporaryPrefix) || !name.ends_with(kTemporarySuffix)) {
    return false;
  }
  name.remove_prefix(kTemporaryPrefix.size());
  pid_t process = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
  return error == std::errc() && *end == '-' && process > 0 && kill(process, 0) != 0 && errno == ESRCH;
}

void RemoveLeftBehind(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (IsLeftBehind(entry->path().filename().string())) {
      std::error_code ignored;
      fs::remove(entry->path(), ignored);
    }
  }
}

// A new file in `folder`, open for writing; its path is put into `path`. Null with errno set on failure.
FileHandle CreateTemporary(const std::string& folder, mode_t mode, std::string& path) {
  static unsigned number = 0;
  int descriptor = -1;
  do {
    path = JoinPath(folder, std::string(kTemporaryPrefix) + std::to_string(getpid()) + "-" + std::to_string(number++) +
                                std::string(kTemporarySuffix));
    descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EEXIST);
  return FileHandle(descriptor < 0 ? nullptr : fdopen(descriptor, "wb"));
}

// The number of an open file of this process that `path` names, as /dev/fd/63 does.
std::optional<int> DescriptorNamed(const fs::path& path) {
  const std::string name = path.filename().string();
  int number = 0;
  const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (failure != std::errc() || end != name.data() + name.size()) {
    return std::nullopt;
  }
  std::error_code error;
  const fs::path folder = fs::canonical(path.parent_path(), error);
  return !error && folder == fs::canonical("/proc/self/fd", error) && !error ? std::optional(number) : std::nullopt;
}

// Where a path leads, whether that exists or not: a file's path without links, or an open file of this process.
struct Target {
  std::string path;
  std::optional<int> descriptor;
  int error = 0;
};

Target FollowLinks(const std::string& path) {
  fs::path target = path;
  std::error_code error;
  for (int i = 0; i <= kMaxLinks; ++i) {
    if (const auto descriptor = DescriptorNamed(target)) {
      return {target.string(), descriptor};
    }
    if (!fs::is_symlink(target, error)) {
      return {target.string(), std::nullopt};
    }
    const fs::path named = fs::read_symlink(target, error);
    target = named.is_absolute() ? named : target.parent_path() / named;
  }
  return {path, std::nullopt, ELOOP};
}

int WriteAndClose(FileHandle file, const std::function<void(FileWriter&)>& write) {
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  FileWriter writer(file.get());
  write(writer);
  int error = writer.Finish();
  if (std::fclose(file.release()) != 0 && error == 0) {
    error = errno;
  }
  return error;
}

// As far as the system allows it.
void KeepOwnerAndMode(const std::string& path, const struct stat& old) {
  const bool kept =
      chown(path.c_str(), old.st_uid, old.st_gid) == 0 || chown(path.c_str(), static_cast<uid_t>(-1), old.st_gid) == 0;
  // A group that can't be kept gives way to one that was not meant to read the file.
  chmod(path.c_str(), old.st_mode & (kept ? 07777u : 07707u));
}

// Shares the position of the open file, so that what others write to it stays.
int WriteToDescriptor(int number, const std::function<void(FileWriter&)>& write) {
  const int flags = fcntl(number, F_GETFL);
  if (flags < 0 || (flags & O_ACCMODE) == O_RDONLY) {
    return EBADF;
  }
  const int copy = fcntl(number, F_DUPFD_CLOEXEC, 0);
  FileHandle file(copy < 0 ? nullptr : fdopen(copy, "wb"));
  return file == nullptr ? errno : WriteAndClose(std::move(file), write);
}

// 0 or an errno value.
int ReplaceTarget(const std::string& path, const std::function<void(FileWriter&)>& write) {
  struct stat status {};
  const bool exists = stat(path.c_str(), &status) == 0;
  if (exists) {
    const bool regular = S_ISREG(status.st_mode);
    // What may not be written to is not replaced either.
    FileHandle probe(std::fopen(path.c_str(), regular ? "r+b" : "wb"));
    if (probe == nullptr) {
      return errno;
    }
    if (!regular) {
      return WriteAndClose(std::move(probe), write);
    }
  }
  const std::string folder = FolderOf(path);
  RemoveLeftBehind(folder);
  std::string temporary;
  FileHandle file = CreateTemporary(folder, exists ? 0600 : 0666, temporary);
  if (file == nullptr) {
    return errno;
  }
  int error = WriteAndClose(std::move(file), write);
  if (error == 0 && exists) {
    KeepOwnerAndMode(temporary, status);
  }
  if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) {
    error = errno;
  }
  if (error != 0) {
    unlink(temporary.c_str());
  }
  return error;
}

}  // namespace

FileError FileErrorOfErrno(const std::string& path, int errnoValue) {
  return {RunTimeErrorOfErrno(errnoValue), path, std::strerror(errnoValue)};
}

bool FileExists(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored) && !fs::is_directory(path, ignored);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code ignored;
  return fs::path(a).lexically_normal() == fs::path(b).lexically_normal() ||
         (fs::exists(a, ignored) && fs::exists(b, ignored) && fs::equivalent(a, b, ignored));
}

std::string JoinPath(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.empty() && path.back() != '/') {
    path += '/';
  }
  return path += name;
}

bool HasDirectory(std::string_view value) {
  return value.find_first_of("/\\") != std::string_view::npos;
}

std::string ResolvePath(std::string_view directory, std::string_view value) {
  return value.starts_with('/') ? std::string(value) : JoinPath(directory, value);
}

std::optional<std::string> FindIgnoringCase(const std::string& directory, std::string_view name) {
  if (FileExists(JoinPath(directory, name))) {
    return std::string(name);
  }
  const std::string wanted = FoldText(name);
  std::error_code error;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
    std::string found = entry->path().filename().string();
    if (FoldText(found) == wanted && FileExists(JoinPath(directory, found))) {
      return found;
    }
  }
  return std::nullopt;
}

FileWriter::FileWriter(std::FILE* file) : file_(file), buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize)) {}

void FileWriter::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const size_t part = std::min(bytes.size(), kRoom);
    std::memcpy(Cursor(), bytes.data(), part);
    Advance(part);
    bytes.remove_prefix(part);
  }
}

char* FileWriter::Cursor() {
  if (used_ + kRoom > kBufferSize) {
    Flush();
  }
  return buffer_.get() + used_;
}

void FileWriter::Flush() {
  if (error_ == 0 && used_ != 0 && std::fwrite(buffer_.get(), 1, used_, file_) != used_) {
    error_ = errno != 0 ? errno : EIO;
  }
  used_ = 0;
}

int FileWriter::Finish() {
  Flush();
  return error_;
}

std::optional<std::string> WhyNoFileName(std::string_view name) {
  if (std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; })) {
    return "'" + QuotedText(name) + "' is no file name: it holds control characters.";
  }
  return std::nullopt;
}

std::optional<FileError> NotRegular(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  FileError error = FileErrorOfErrno(path, EISDIR);
  if (!S_ISDIR(status.st_mode)) {
    const char* kind = S_ISFIFO(status.st_mode) ? "pipe" : S_ISSOCK(status.st_mode) ? "socket" : "device";
    error.reason = std::string("it is a ") + kind + ", not a file";
  }
  return error;
}

std::optional<FileError> NotSmallRegular(const std::string& path) {
  if (auto error = NotRegular(path)) {
    return error;
  }
  std::error_code missing;
  const uintmax_t size = fs::file_size(path, missing);
  if (missing || size <= kMaxSmallFile) {
    return std::nullopt;
  }
  return FileError{MakeRunTimeError(kErrorPathFileAccess), path,
                   "it is larger than " + std::to_string(kMaxSmallFile >> 20) + " MB"};
}

std::optional<FileError> ReplaceFile(const std::string& path, const std::function<void(FileWriter&)>& write) {
  const Target target = FollowLinks(path);
  const int error = target.error != 0   ? target.error
                    : target.descriptor ? WriteToDescriptor(*target.descriptor, write)
                                        : ReplaceTarget(target.path, write);
  return error == 0 ? std::nullopt : std::optional(FileErrorOfErrno(path, error));
}

}  // namespace quorvane
