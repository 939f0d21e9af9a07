#include "tests/cli/command_line.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <string_view>
#include <vector>

namespace quorvane::test {

CommandLine::CommandLine() {
  directory_.Write("words.lex", kWords);
  std::filesystem::create_directory(directory_.File("home"));
}

Result CommandLine::Run(const std::string& command, const std::string& program) const {
  const std::string script = "q() { '" + program + "' \"$@\"; }\ncd '" + directory_.path() + "'\n" + command;
  const std::vector<std::string> variables = {
      "PATH=/usr/local/bin:/usr/bin:/bin", "LC_ALL=C", "TERM=xterm", "Q=" + program, "HOME=" + directory_.File("home"),
      "QUORVANE_DIR=" + directory_.path()};
  const char* arguments[] = {"sh", "-c", script.c_str(), nullptr};
  std::vector<char*> environment;
  for (const std::string& variable : variables) {
    environment.push_back(const_cast<char*>(variable.c_str()));
  }
  environment.push_back(nullptr);
  const TemporaryDirectory streams;
  const std::string out = streams.File("out");
  const std::string err = streams.File("err");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT, 0600);
  pid_t child = 0;
  const int failed =
      posix_spawn(&child, "/bin/sh", &actions, nullptr, const_cast<char**>(arguments), environment.data());
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(failed, 0);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadFile(out), ReadFile(err)};
}

void CommandLine::Try(const Row& row) const {
  SCOPED_TRACE(row.command);
  const Result result = Run(row.command);
  EXPECT_EQ(result.status, row.status);
  EXPECT_EQ(result.out, row.out);
  const std::string_view err = row.err;
  if (err.starts_with("...")) {
    EXPECT_NE(result.err.find(err.substr(3)), std::string::npos) << result.err;
  } else {
    EXPECT_EQ(result.err, err);
  }
}

}  // namespace quorvane::test
