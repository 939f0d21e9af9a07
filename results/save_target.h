// Which files results may be written over.
#pragma once

#include <optional>
#include <span>
#include <string>

namespace quorvane {

// A file of the program's that results never replace.
struct ProtectedFile {
  std::string path;
  std::string what;  // "the log"
};

// Why results can't be saved at `path`: a lexicon file (any "*.lex"), one of `files` (under whatever name, links
// followed), something that is no regular file. Nothing when they can.
std::optional<std::string> WhyNotASaveFile(const std::string& path, std::span<const ProtectedFile> files);

// Whether the file was written by this program to hold results: it is missing, empty, or begins as a results file or as
// the file that a first start makes in its place.
bool IsOwnSaveFile(const std::string& path);

}  // namespace quorvane
