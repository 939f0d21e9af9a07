#include "results/save_target.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "base/file.h"
#include "base/limits.h"
#include "base/text.h"
#include "lexicon/lexicon_name.h"
#include "search/word_type.h"

namespace quorvane {
namespace fs = std::filesystem;
namespace {

constexpr std::array kSpecialNouns = {kRandomNoun, kSequenceNoun, kLetterChoiceNoun};

bool BeginsWithNoun(std::string_view text, std::string_view noun) {
  return text.starts_with(std::string(noun) + " found") || text.starts_with(std::string(noun) + "s found");
}

// "12 words found ...", whatever is counted.
bool IsHeader(std::string_view text) {
  const size_t digits = text.find_first_not_of("0123456789");
  if (digits == 0 || digits == std::string_view::npos || text[digits] != ' ') {
    return false;
  }
  text.remove_prefix(digits + 1);
  for (const WordTypeFacts& mode : WordTypes()) {
    if (BeginsWithNoun(text, mode.noun)) {
      return true;
    }
  }
  return std::any_of(kSpecialNouns.begin(), kSpecialNouns.end(),
                     [&](std::string_view noun) { return BeginsWithNoun(text, noun); });
}

}  // namespace

std::optional<std::string> WhyNotASaveFile(const std::string& path, std::span<const ProtectedFile> files) {
  std::error_code error;
  if (FoldText(path).ends_with(kLexiconExtension)) {
    return path + " is the name of a lexicon; a word list is not saved over it.";
  }
  for (const ProtectedFile& file : files) {
    if (IsSameFile(path, file.path)) {
      return path + " is " + file.what + "; a word list is not saved over it.";
    }
  }
  if (fs::is_directory(path, error)) {
    return path + " is a directory.";
  }
  if (const auto irregular = NotRegular(path)) {
    return irregular->Text();
  }
  if (fs::path target = fs::canonical(path, error); !error && FoldText(target.string()).ends_with(kLexiconExtension)) {
    return path + " leads to the lexicon " + target.string() + "; a word list is not saved over it.";
  }
  return std::nullopt;
}

bool IsOwnSaveFile(const std::string& path) {
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) {
    return !FileExists(path);
  }
  std::array<char, 64> start{};
  const std::string_view text(start.data(), std::fread(start.data(), 1, start.size(), file.get()));
  return text.empty() || text.starts_with(kDummyFileStart) || IsHeader(text);
}

}  // namespace quorvane
