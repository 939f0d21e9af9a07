#include "base/file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "base/text.h"

namespace quorvane {
namespace fs = std::filesystem;
namespace {

constexpr size_t kBufferSize = size_t{1} << 18;
constexpr int kMaxTemporaryNames = 100;
constexpr int kMaxLinks = 40;

// A file of a new name beside `path`, open for writing; its name is put into `name`. Null with errno set on failure.
FileHandle CreateBeside(const std::string& path, std::string& name) {
  for (int i = 0; i < kMaxTemporaryNames; ++i) {
    name = path + ".new" + std::to_string(i);
    FileHandle file(std::fopen(name.c_str(), "wbx"));
    if (file != nullptr || errno != EEXIST) {
      return file;
    }
  }
  return nullptr;
}

// What a link, or a chain of them, names in the end, whether it exists or not.
std::string FollowLinks(const std::string& path) {
  fs::path target = path;
  std::error_code error;
  for (int i = 0; i < kMaxLinks && fs::is_symlink(target, error); ++i) {
    const fs::path named = fs::read_symlink(target, error);
    target = named.is_absolute() ? named : target.parent_path() / named;
  }
  return target.string();
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

}  // namespace

FileError FileErrorOfErrno(const std::string& path, int errnoValue) {
  return {RunTimeErrorOfErrno(errnoValue), path, std::strerror(errnoValue)};
}

bool FileExists(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored) && !fs::is_directory(path, ignored);
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

std::optional<FileError> ReplaceFile(const std::string& path, const std::function<void(FileWriter&)>& write) {
  std::error_code error;
  const std::string target = FollowLinks(path);
  const fs::file_status status = fs::status(target, error);
  const bool exists = fs::exists(status);
  if (exists) {
    // What may not be written to is not replaced either.
    FileHandle probe(std::fopen(target.c_str(), fs::is_regular_file(status) ? "r+b" : "wb"));
    if (probe == nullptr) {
      return FileErrorOfErrno(path, errno);
    }
    if (!fs::is_regular_file(status)) {
      const int written = WriteAndClose(std::move(probe), write);
      return written == 0 ? std::nullopt : std::optional(FileErrorOfErrno(path, written));
    }
  }
  std::string temporary;
  FileHandle file = CreateBeside(target, temporary);
  if (file == nullptr) {
    return FileErrorOfErrno(path, errno);
  }
  const int written = WriteAndClose(std::move(file), write);
  if (written != 0) {
    fs::remove(temporary, error);
    return FileErrorOfErrno(path, written);
  }
  if (exists) {
    fs::permissions(temporary, status.permissions(), error);
  }
  if (std::rename(temporary.c_str(), target.c_str()) != 0) {
    const int renameError = errno;
    fs::remove(temporary, error);
    return FileErrorOfErrno(path, renameError);
  }
  return std::nullopt;
}

}  // namespace quorvane
