#include "tests/support/temporary_directory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/file.h"

namespace quorvane::test {
namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() {
  std::string pattern = (fs::temp_directory_path() / "quorvane-test-XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryDirectory::File(std::string_view name) const {
  return JoinPath(path_, name);
}

std::string TemporaryDirectory::Write(std::string_view name, std::string_view bytes) const {
  const std::string path = File(name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

std::string ReadFile(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

}  // namespace quorvane::test
