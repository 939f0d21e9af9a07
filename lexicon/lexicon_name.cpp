#include "lexicon/lexicon_name.h"

#include <algorithm>
#include <filesystem>

#include "base/file.h"
#include "base/text.h"

namespace quorvane {
namespace fs = std::filesystem;

std::string CleanLexiconName(std::string_view typed) {
  std::string name = FoldText(typed);
  std::erase_if(name, [](char c) { return kLexiconNameCharacters.find(c) == std::string_view::npos; });
  return name;
}

std::vector<std::string> LexiconFilesIn(const std::string& directory) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    std::error_code ignored;
    if (FoldText(name).ends_with(kLexiconExtension) && name.find('\\') == std::string::npos &&
        !entry->is_directory(ignored)) {
      names.push_back(std::move(name));
    }
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string foldedA = FoldText(a);
    const std::string foldedB = FoldText(b);
    return foldedA == foldedB ? a < b : foldedA < foldedB;
  });
  return names;
}

std::optional<std::string> LexiconNamed(const std::string& directory, const std::string& name) {
  for (const std::string& file : {name + std::string(kLexiconExtension), name}) {
    if (std::string path = JoinPath(directory, file); FileExists(path)) {
      return path;
    }
  }
  return std::nullopt;
}

}  // namespace quorvane
