// The command line of the engine: `quorvane-cli`.

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>

#include "base/version.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"

namespace quorvane::cli {
namespace {

bool TakesValue(const CLI::App& command, const std::string& name) {
  const CLI::Option* option = command.get_option_no_throw(name);
  return option != nullptr && option->get_items_expected_max() > 0;
}

// The first word behind the command that is neither an option nor an option's value, when it begins with "-" and stands
// in front of any "--": a pattern that would be taken for an option, or for a number. Empty when there is none.
std::string DashedPattern(const CLI::App& command, const std::vector<std::string>& arguments) {
  for (size_t i = 1; i < arguments.size() && arguments[i] != "--"; ++i) {
    const std::string& argument = arguments[i];
    if (argument.size() < 2 || argument[0] != '-') {
      break;
    }
    if (command.get_option_no_throw(argument.substr(0, argument.find('='))) == nullptr) {
      return argument;
    }
    i += TakesValue(command, argument) ? 1 : 0;
  }
  return {};
}

// A pattern that is taken for an option, with what to type instead; empty when there is none.
std::string DashedPatternText(const std::vector<CommandLine>& commands, const std::vector<std::string>& arguments) {
  for (const CommandLine& command : commands) {
    const bool takesPattern = command.parser->get_option_no_throw("PATTERN") != nullptr;
    if (!takesPattern || arguments.empty() || arguments.front() != command.parser->get_name()) {
      continue;
    }
    if (const std::string dashed = DashedPattern(*command.parser, arguments); !dashed.empty()) {
      return "'" + dashed +
             "' is no option; a pattern that begins with - stands behind --, after all options: " + "quorvane-cli " +
             arguments.front() + " [options] -- -at";
    }
  }
  return {};
}

int Run(int argc, const char* const* argv) {
  CLI::App app("Lists every word of a lexicon that fits a pattern.", "quorvane-cli");
  app.set_version_flag("--version", "quorvane-cli " + VersionText());
  app.require_subcommand(1);
  app.footer("quorvane-cli COMMAND --help says more. Exit status of every command: 2 when something failed.");
  const std::vector<CommandLine> commands = AddCommands(app);
  const std::vector<std::string> arguments = SplitEmptyValues(argc, argv, [&](const std::string& name) {
    return std::any_of(commands.begin(), commands.end(),
                       [&](const CommandLine& command) { return TakesValue(*command.parser, name); });
  });
  if (const std::string text = DashedPatternText(commands, arguments); !text.empty()) {
    Complain(text);
    return kFailed;
  }
  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::Success& success) {
    app.exit(success);
    return std::cout.flush() ? kFound : kFailed;
  } catch (const CLI::ParseError& error) {
    app.exit(error);
    return kFailed;
  }
  const auto chosen = std::find_if(commands.begin(), commands.end(),
                                   [](const CommandLine& command) { return command.parser->parsed(); });
  return chosen->run();
}

}  // namespace
}  // namespace quorvane::cli

namespace {

// The searched lexicon is mapped: somebody has shortened the file meanwhile.
extern "C" void LexiconVanished(int) {
  constexpr char kText[] = "quorvane-cli: the lexicon file was shortened while it was being searched\n";
  [[maybe_unused]] const auto written = write(STDERR_FILENO, kText, sizeof kText - 1);
  _exit(quorvane::cli::kFailed);
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGBUS, LexiconVanished);
  try {
    return quorvane::cli::Run(argc, argv);
  } catch (const std::exception& error) {
    quorvane::cli::Complain(error.what());
    return quorvane::cli::kFailed;
  }
}
