// "The program's directory": where the lexicons, the log, the results file and the help live.
#pragma once

#include <optional>
#include <string>

#include "base/file.h"

namespace quorvane {

inline constexpr const char* kDefaultLexiconName = "words.lex";

struct ProgramDirectory {
  std::string path;                  // Absolute, without a "/" at its end.
  std::optional<FileError> problem;  // Set when the directory could not be made or its files could not be copied.
};

// What the search for the directory depends on; tests set each. An absent environment variable is an empty string.
struct ProgramDirectoryInput {
  std::string dataDir;              // --data-dir
  std::string quorvaneDir;          // QUORVANE_DIR
  std::string executableDirectory;  // Where the running program lies.
  std::string xdgDataHome;          // XDG_DATA_HOME
  std::string home;                 // HOME
};

ProgramDirectoryInput ProgramDirectoryInputOfProcess(const std::string& dataDir);

// Settles the directory: --data-dir, else QUORVANE_DIR, else the executable's own directory when it holds a
// "words.lex", else $XDG_DATA_HOME/quorvane (by default ~/.local/share/quorvane). The last is made on first use, and
// whichever of "words.lex" and "Quorvane.hlp" it lacks is copied there from ../share/quorvane beside the executable's
// directory. Nothing else is made or written.
ProgramDirectory SettleProgramDirectory(const ProgramDirectoryInput& input);

}  // namespace quorvane
