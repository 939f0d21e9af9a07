// Completions for shells, made of the parser.
#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/offers.h"

namespace quorvane::cli {

// What a command's parser knows of an option, or of an argument without a name of its own.
struct OptionFacts {
  Choices names;  // With their dashes; of an argument its one name.
  std::string help;
  bool takesValue = false;
  bool repeatable = false;
  Offer offer;

  // "a|b".
  std::string Names() const;
};

struct CommandFacts {
  std::string name;
  std::string help;
  std::vector<OptionFacts> options;
  std::vector<OptionFacts> arguments;
  std::vector<CommandFacts> commands;
};

struct ShellRow {
  std::string_view option;  // The name on the command line.
  std::string (*completion)(const CommandFacts& program);
};
std::span<const ShellRow> Shells();

// Prints the completion for a shell of that name; the exit status.
int PrintCompletion(CLI::App& app, const std::string& shell);

// Texts that a shell reads.
std::string BashCompletion(const CommandFacts& program);
std::string ZshCompletion(const CommandFacts& program);
std::string FishCompletion(const CommandFacts& program);

}  // namespace quorvane::cli
