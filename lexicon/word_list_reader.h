// Reading the files that lexicons are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "base/file.h"

namespace quorvane {

inline constexpr uintmax_t kMostListBytes = uintmax_t{1} << 30;
// What a preview reads.
inline constexpr size_t kHeadBytes = size_t{4} << 20;

struct WordListRead {
  std::string bytes;
  std::optional<FileError> error;  // Then there are no bytes.
};

// Whether something else than a regular file is read to its end, too: a pipe that nobody writes to waits for ever.
enum class Pipes { Refused, Read };

// All bytes of a list. Refused: a list of over 1 GB, a regular one before anything is read; a compressed file; a file
// that something writes to meanwhile.
WordListRead ReadWordList(const std::string& path, Pipes pipes);
// The same of what is left of an open file, which messages call `name`.
WordListRead ReadWordList(std::FILE* file, const std::string& name);
// The whole lines among the first 4 MB of a regular file of at most 1 GB; of a longer line its start.
WordListRead ReadWordListHead(const std::string& path);

}  // namespace quorvane
