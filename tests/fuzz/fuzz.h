// What the fuzz targets share.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quorvane::fuzz {

// Ends the run: the input is a finding.
inline void Demand(bool holds, std::string_view what) {
  if (!holds) {
    std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
  }
}

// A file in memory.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view bytes) : file_(memfd_create("fuzz", 0)) {
    Demand(write(file_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "a file in memory");
  }
  ~MemoryFile() { close(file_); }
  std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

 private:
  int file_;
};

// A text of up to `longest` of these characters.
inline std::string TextOf(FuzzedDataProvider& data, std::string_view characters, size_t longest) {
  std::string text = data.ConsumeBytesAsString(data.ConsumeIntegralInRange<size_t>(0, longest));
  for (char& c : text) {
    c = characters[static_cast<unsigned char>(c) % characters.size()];
  }
  return text;
}

}  // namespace quorvane::fuzz
