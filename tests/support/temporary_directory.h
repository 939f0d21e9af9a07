// A directory that is gone when the test is over.
#pragma once

#include <string>
#include <string_view>

namespace quorvane::test {

class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::string& path() const { return path_; }
  std::string File(std::string_view name) const;
  // Writes a file; its path.
  std::string Write(std::string_view name, std::string_view bytes) const;

 private:
  std::string path_;
};

std::string ReadFile(const std::string& path);
// Words as a lexicon file holds them.
template <class Words>
std::string Lines(const Words& words, std::string_view lineEnd = "\r\n") {
  std::string text;
  for (const auto& word : words) {
    text += word;
    text += lineEnd;
  }
  return text;
}

}  // namespace quorvane::test
