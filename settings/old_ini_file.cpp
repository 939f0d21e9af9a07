#include "settings/old_ini_file.h"

#include <cerrno>
#include <filesystem>

#include "base/text.h"

namespace quorvane {
namespace {

constexpr std::string_view kLoadedMarker = "Initial Load Complete";

OldIniFile::ReadResult OpenFailure(const std::string& path, const RunTimeError& error) {
  return {error.number, "Quorvane Initialisation error",
          "INI File Open Failed for " + path + "\r\n\r\nError #" + std::to_string(error.number) + " (" +
              error.description + ")"};
}

}  // namespace

OldIniFile::ReadResult OldIniFile::Read(const std::string& directory, std::string_view baseName) {
  keys_ = {};
  values_ = {};
  const std::string upper = UpperText(baseName);
  const auto found = FindIgnoringCase(directory, std::string(baseName) + ".ini");
  if (!found) {
    return {kErrorFileNotFound, "Quorvane Initialisation file not found",
            "Initialisation file " + upper +
                ".INI was not found.  This file needs \r\nto be in the same directory as "
                "the application file " +
                upper + ".EXE.  \r\nThat directory is:   " + directory + "\r\nMove the INI file there and try again."};
  }
  const std::string path = JoinPath(directory, *found);
  if (const auto wrong = NotSmallRegular(path)) {
    return OpenFailure(path, {wrong->error.number, wrong->reason});
  }
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) {
    return OpenFailure(path, RunTimeErrorOfErrno(errno));
  }
  keys_[0] = kLoadedMarker;
  size_t next = 1;
  std::string field;
  const auto take = [&] {
    const size_t equals = field.find('=');
    const bool skipped = field.starts_with(';') || field.starts_with('[');
    if (!skipped && equals != std::string::npos && next < kEntries) {
      keys_[next] = field.substr(0, equals);
      values_[next] = field.substr(equals + 1);
      ++next;
    }
    field.clear();
  };
  for (int c = std::fgetc(file.get()); c != EOF; c = std::fgetc(file.get())) {
    if (c == ',' || c == '\n') {
      take();
    } else if (c != '\r') {
      field += static_cast<char>(c);
    }
  }
  if (std::ferror(file.get()) != 0) {
    keys_ = {};
    values_ = {};
    return OpenFailure(path, RunTimeErrorOfErrno(errno));
  }
  take();
  return {};
}

bool OldIniFile::Loaded() const {
  return keys_[0] == kLoadedMarker;
}

std::string OldIniFile::LookUp(std::string_view key) const {
  if (key.empty()) {
    return "Invalid";
  }
  for (size_t i = 1; i < kEntries; ++i) {
    if (keys_[i] == key) {
      return values_[i];
    }
  }
  return "NotFound";
}

int OldIniFile::Store(std::string_view key, std::string_view value) {
  if (!Loaded()) {
    return kNotLoaded;
  }
  if (key.empty()) {
    return kNoKey;
  }
  for (size_t i = 1; i < kEntries; ++i) {
    if (keys_[i].empty() || keys_[i] == key) {
      keys_[i] = key;
      values_[i] = value;
      break;
    }
  }
  return kStored;
}

}  // namespace quorvane
