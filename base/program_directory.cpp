#include "base/program_directory.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace quorvane {
namespace fs = std::filesystem;
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string Absolute(const std::string& directory) {
  std::error_code error;
  std::string path = fs::absolute(directory, error).lexically_normal().string();
  while (path.size() > 1 && path.back() == '/') {
    path.pop_back();
  }
  return path;
}

std::string InstalledDirectory(const std::string& executableDirectory) {
  return Absolute(JoinPath(executableDirectory, "../share/quorvane"));
}

FileError ErrorOf(const std::string& path, const std::error_code& code) {
  return {RunTimeErrorOfErrno(code.value()), path, code.message()};
}

// Whether the directory is the executable's own.
bool OwnDirectory(const ProgramDirectoryInput& input) {
  return !input.executableDirectory.empty() && FileExists(JoinPath(input.executableDirectory, kDefaultLexiconName));
}

// A service or a bare shell may have no HOME: the user's entry in the system's list has it, too.
std::string HomeDirectory() {
  std::string home = Environment("HOME");
  if (home.empty()) {
    const passwd* user = getpwuid(getuid());
    home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
  }
  return home;
}

}  // namespace

std::string ExecutableDirectory() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::string OwnOrInstalled(const std::string& programDirectory, const std::string& executableDirectory,
                           const std::string& name) {
  std::string own = JoinPath(programDirectory, name);
  const std::string installed = JoinPath(InstalledDirectory(executableDirectory), name);
  return !FileExists(own) && FileExists(installed) ? installed : own;
}

ProgramDirectoryInput ProgramDirectoryInputOfProcess(const std::string& dataDir) {
  return {dataDir, Environment("QUORVANE_DIR"), ExecutableDirectory(), Environment("XDG_DATA_HOME"), HomeDirectory()};
}

std::string ProgramDirectoryPath(const ProgramDirectoryInput& input) {
  if (const std::string& given = input.dataDir.empty() ? input.quorvaneDir : input.dataDir; !given.empty()) {
    return Absolute(given);
  }
  if (OwnDirectory(input)) {
    return Absolute(input.executableDirectory);
  }
  const std::string dataHome =
      input.xdgDataHome.starts_with('/') ? input.xdgDataHome : JoinPath(input.home, ".local/share");
  return Absolute(JoinPath(dataHome, "quorvane"));
}

std::string UsualProgramDirectory() {
  ProgramDirectoryInput input = ProgramDirectoryInputOfProcess("");
  input.quorvaneDir.clear();
  return ProgramDirectoryPath(input);
}

ProgramDirectory SettleProgramDirectory(const ProgramDirectoryInput& input) {
  ProgramDirectory directory{ProgramDirectoryPath(input), std::nullopt};
  if (!input.dataDir.empty() || !input.quorvaneDir.empty() || OwnDirectory(input)) {
    return directory;
  }
  std::error_code error;
  fs::create_directories(directory.path, error);
  if (error) {
    directory.problem = ErrorOf(directory.path, error);
    return directory;
  }
  const std::string source = JoinPath(InstalledDirectory(input.executableDirectory), kDefaultLexiconName);
  const std::string target = JoinPath(directory.path, kDefaultLexiconName);
  if (!FileExists(source) || fs::exists(target, error)) {
    return directory;
  }
  // Copied under another name first: a copy that stops half way never counts as the file.
  const std::string partial = target + ".new";
  fs::copy_file(source, partial, fs::copy_options::overwrite_existing, error);
  if (!error) {
    fs::rename(partial, target, error);
  }
  if (error) {
    directory.problem = ErrorOf(target, error);
    std::error_code ignored;
    fs::remove(partial, ignored);
  }
  return directory;
}

}  // namespace quorvane
