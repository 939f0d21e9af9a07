// The commands with their options.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <vector>

namespace quorvane::cli {

// A command with its parser; `run` keeps what the parser fills, and gives the exit status.
struct CommandLine {
  CLI::App* parser;
  std::function<int()> run;
};

// Adds all commands to the program's parser.
std::vector<CommandLine> AddCommands(CLI::App& app);

}  // namespace quorvane::cli
