#include "lexicon/word_list_reader.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>

namespace quorvane {
namespace {

using namespace std::string_view_literals;

constexpr size_t kPiece = size_t{1} << 20;

// How compressed files begin, and what unpacks them.
struct Compression {
  std::string_view start;
  std::string_view name;
  std::string_view tool;
};
constexpr std::array kCompressions = {
    Compression{"\x1F\x8B"sv, "gzip", "gunzip"},
    Compression{"PK\x03\x04"sv, "zip", "unzip"},
    Compression{"\xFD"
                "7zXZ\0"sv,
                "xz", "unxz"},
    Compression{"BZh"sv, "bzip2", "bunzip2"},
    Compression{"\x28\xB5\x2F\xFD"sv, "zstd", "unzstd"},
};
// A list may begin with the letters of a bzip2 file; this follows them and a digit there.
constexpr std::string_view kBzip2Block = "1AY&SY";

const Compression* CompressionOf(std::string_view bytes) {
  const auto found = std::find_if(kCompressions.begin(), kCompressions.end(),
                                  [&](const Compression& row) { return bytes.starts_with(row.start); });
  const bool merelyLetters = found != kCompressions.end() && found->name == "bzip2" &&
                             (bytes.size() < 4 || !bytes.substr(4).starts_with(kBzip2Block));
  return found == kCompressions.end() || merelyLetters ? nullptr : found;
}

WordListRead Refused(const std::string& name, const std::string& reason) {
  return {{}, FileError{MakeRunTimeError(kErrorPathFileAccess), name, reason}};
}

WordListRead TooLarge(const std::string& name) {
  return Refused(name, "it is larger than 1 GB, the most that a lexicon is made of");
}

// Of a regular file.
bool IsTooLarge(std::FILE* file) {
  struct stat status {};
  return fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode) &&
         static_cast<uintmax_t>(status.st_size) > kMostListBytes;
}

// Size and time of the last change of a regular file; of others nothing.
std::array<int64_t, 3> StateOf(std::FILE* file) {
  struct stat status {};
  if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode)) {
    return {};
  }
  return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

// At most `most` bytes and one more, which says that there are more.
WordListRead ReadUpTo(std::FILE* file, const std::string& name, size_t most) {
  WordListRead read;
  std::setvbuf(file, nullptr, _IONBF, 0);
  struct stat status {};
  const bool sized = fstat(fileno(file), &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0;
  size_t room = sized ? std::min(static_cast<size_t>(status.st_size), most) + 1 : kPiece;
  for (size_t size = 0;;) {
    read.bytes.resize(std::min(room, most + 1));
    const size_t wanted = read.bytes.size() - size;
    errno = 0;
    const size_t got = std::fread(read.bytes.data() + size, 1, wanted, file);
    if (std::ferror(file) != 0) {
      return {{}, FileErrorOfErrno(name, errno)};
    }
    size += got;
    if (const Compression* compression = CompressionOf(std::string_view(read.bytes).substr(0, size))) {
      return Refused(name, "it is compressed (" + std::string(compression->name) + "); unpack it first, with " +
                               std::string(compression->tool));
    }
    if (got < wanted || size > most) {
      read.bytes.resize(size);
      return read;
    }
    room = std::max(room * 2, kPiece);
  }
}

// The file, open; or why it is not. Opening a pipe waits for its writer.
FileHandle Open(const std::string& path, Pipes pipes, std::optional<FileError>& error) {
  std::error_code code;
  if (std::filesystem::is_directory(path, code)) {
    error = FileErrorOfErrno(path, EISDIR);
  } else if (pipes == Pipes::Refused) {
    error = NotRegular(path);
  }
  FileHandle file(error ? nullptr : std::fopen(path.c_str(), "rb"));
  if (file == nullptr && !error) {
    error = FileErrorOfErrno(path, errno);
  }
  return file;
}

}  // namespace

WordListRead ReadWordList(const std::string& path, Pipes pipes) {
  std::optional<FileError> error;
  const FileHandle file = Open(path, pipes, error);
  return error ? WordListRead{{}, error} : ReadWordList(file.get(), path);
}

WordListRead ReadWordList(std::FILE* file, const std::string& name) {
  if (IsTooLarge(file)) {
    return TooLarge(name);
  }
  const auto before = StateOf(file);
  WordListRead read = ReadUpTo(file, name, kMostListBytes);
  if (!read.error && StateOf(file) != before) {
    return Refused(name, "it changed while it was read; try again when it is complete");
  }
  return read.bytes.size() > kMostListBytes ? TooLarge(name) : read;
}

WordListRead ReadWordListHead(const std::string& path) {
  std::optional<FileError> error;
  const FileHandle file = Open(path, Pipes::Refused, error);
  if (error) {
    return {{}, error};
  }
  if (IsTooLarge(file.get())) {
    return TooLarge(path);
  }
  WordListRead read = ReadUpTo(file.get(), path, kHeadBytes);
  if (read.bytes.size() > kHeadBytes) {
    const size_t lastEnd = read.bytes.rfind('\n');
    read.bytes.resize(lastEnd == std::string::npos ? kHeadBytes : lastEnd + 1);
  }
  return read;
}

}  // namespace quorvane
