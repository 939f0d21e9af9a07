// "The program's directory": where the lexicons, the log, the results file and the help live.
#pragma once

#include <optional>
#include <string>

#include "base/file.h"

namespace quorvane {

inline constexpr const char* kDefaultLexiconName = "words.lex";

struct ProgramDirectory {
  std::string path;                  // Absolute, without a "/" at its end.
  std::optional<FileError> problem;  // Set when the directory could not be made or its lexicon not copied.
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

// Where the directory settled below would be. Nothing is made or written.
std::string ProgramDirectoryPath(const ProgramDirectoryInput& input);
// The same in a shell that says nothing of it, by options or environment.
std::string UsualProgramDirectory();

// Settles the directory: --data-dir, else QUORVANE_DIR, else the executable's own directory when it holds a
// "words.lex", else $XDG_DATA_HOME/quorvane (by default ~/.local/share/quorvane). The last is made on first use, and a
// "words.lex" that it lacks is copied there from the installed directory, ../share/quorvane beside the executable's.
// Nothing else is made or written.
ProgramDirectory SettleProgramDirectory(const ProgramDirectoryInput& input);

// Where a file lies that is only read: in the program's directory when the user has put one there, else in the
// installed directory; when it is in neither, where the user's would lie.
std::string OwnOrInstalled(const std::string& programDirectory, const std::string& executableDirectory,
                           const std::string& name);

// Where the running program lies.
std::string ExecutableDirectory();

}  // namespace quorvane
