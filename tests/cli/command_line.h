// Runs the real program by a shell, as a script does.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temporary_directory.h"

namespace quorvane::test {

struct Result {
  int status = -1;  // Of the shell; 128 and more: ended by a signal.
  std::string out, err;
};

constexpr const char* kWords =
    "Abba\r\nat\r\nate\r\ncan't\r\ncaf\xE9\r\ncat\r\ncut\r\neat\r\nlevel\r\nlisten\r\nsilent\r\ntea\r\ntee\r\nzoo\r\n";

// A directory of its own with a lexicon, which is the program's directory, too. Commands run in it; "q" is the program,
// and so is "$Q" where no function can stand.
class CommandLine : public testing::Test {
 protected:
  CommandLine();

  Result Run(const std::string& command, const std::string& program = QUORVANE_CLI) const;

  // What standard error holds is compared as a whole, or in part where the row begins with "...".
  struct Row {
    const char* command;
    int status;
    const char *out, *err;
  };
  void Try(const Row& row) const;
  template <size_t N>
  void Try(const Row (&rows)[N]) const {
    for (const Row& row : rows) {
      Try(row);
    }
  }

  TemporaryDirectory directory_;
};

}  // namespace quorvane::test
