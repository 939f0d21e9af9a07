// The command line of the engine: `quorvane-cli`.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>

#include "base/version.h"
#include "cli/explain_command.h"
#include "cli/find_command.h"
#include "cli/lexicon_commands.h"
#include "cli/output.h"
#include "search/wildcards.h"

namespace quorvane::cli {
namespace {

constexpr size_t kFooterWidth = 100;
constexpr const char* kStatusFooter =
    "Exit status: 0 words were found, 1 none, 2 the pattern was refused or something failed.";

// Breaks the lines of a text at blanks.
std::string Wrapped(std::string_view text) {
  std::string lines;
  while (text.size() > kFooterWidth) {
    const size_t end = text.rfind(' ', kFooterWidth);
    lines += std::string(text.substr(0, end)) + "\n";
    text.remove_prefix(end + 1);
  }
  return lines + std::string(text);
}

// What the pattern characters are, all of them.
std::string PatternFooter() {
  std::string text;
  bool modes = false;
  for (const Wildcard& wildcard : Wildcards()) {
    if (wildcard.brief.empty()) {
      continue;
    }
    const bool firstMode = !modes && !wildcard.InPlainPattern();
    modes = modes || firstMode;
    text += (text.empty() ? "Pattern characters: " : firstMode ? "; " : ", ") + std::string(wildcard.brief);
  }
  return Wrapped(text + ".");
}

// A command with its parser; `run` keeps what the parser fills, and gives the exit status.
struct CommandLine {
  CLI::App* parser;
  std::function<int()> run;
};

const CLI::Validator& NotEmpty() {
  static const CLI::Validator validator([](const std::string& value) { return value.empty() ? "needs a value" : ""; },
                                        "");
  return validator;
}

void AddSearchOptions(CLI::App* command, SearchArguments& arguments) {
  command->add_option("PATTERN", arguments.pattern, "The pattern, as typed into the window")->required();
  command->add_option("--type", arguments.typeName, WordTypeNames("or"))->capture_default_str();
  command->add_option("--include", arguments.include, "Characters that # stands for (default a-z)");
  command->add_option("--exclude", arguments.exclude, "Characters that ! does not stand for (default none)");
  command->add_option("--rack", arguments.rack, "Tiles that = stands for; - and ? are blanks (default none)");
}

// What is wrong with the values, said; true when nothing is.
template <class Arguments>
bool Settled(Arguments& arguments) {
  const auto problem = arguments.Settle();
  if (problem) {
    Complain(*problem);
  }
  return !problem;
}

CommandLine AddFind(CLI::App& app) {
  auto find = std::make_shared<FindArguments>();
  CLI::App* command = app.add_subcommand("find",
                                         "List every word that fits, one a line (PATTERN -: each line of "
                                         "standard input)");
  command->footer(PatternFooter() + "\n" + kStatusFooter);
  AddSearchOptions(command, find->asked);
  command->add_option("--lexicon", find->lexicon, "Lexicon file (default: words.lex of the program's directory)")
      ->check(NotEmpty());
  command->add_option("--data-dir", find->dataDir, "The program's directory")->check(NotEmpty());
  command->add_option("--length", find->asked.lengthText, "Word length, N or MIN-MAX, 1 to 60")->check(NotEmpty());
  command->add_option("--sort", find->sortName, SortOrderNames("or"))->capture_default_str();
  command->add_flag("--upper", find->upper, "Words in upper case");
  command->add_flag("--count", find->count, "Print the number of words only");
  command->add_flag("--time", find->time, "Print the time of the search on standard error");
  command->add_flag("--json", find->json, "One JSON object a line");
  command->add_option("--seed", find->seed, "Seed of random words")->check(NotEmpty());
  command->add_option("--save", find->saveFile, "Also write the results file")->check(NotEmpty());
  command->add_option("--save-lexicon", find->saveLexicon, "Also write the words as a lexicon file")->check(NotEmpty());
  return {command, [find] { return Settled(*find) ? Find(*find) : kFailed; }};
}

CommandLine AddExplain(CLI::App& app) {
  struct Options {
    SearchArguments asked;
    bool paste = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("explain", "Print what the input check and the preparation make of a pattern, as JSON");
  AddSearchOptions(command, options->asked);
  command->footer(PatternFooter());
  command->add_flag("--paste", options->paste, "Take the pattern at once instead of character by character");
  return {command, [options] { return Settled(options->asked) ? Explain(options->asked, options->paste) : kFailed; }};
}

CommandLine AddStats(CLI::App& app) {
  struct Options {
    std::string lexicon;
    std::string dataDir;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("stats", "Print the lexicon's counts by letter and by length");
  command->add_option("--lexicon", options->lexicon, "Lexicon file")->check(NotEmpty());
  command->add_option("--data-dir", options->dataDir, "The program's directory")->check(NotEmpty());
  return {command, [options] { return ShowStatistics(LexiconPath(options->lexicon, options->dataDir)); }};
}

CommandLine AddCheck(CLI::App& lexicon) {
  struct Options {
    std::string file;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = lexicon.add_subcommand("check", "Load a lexicon as the program would");
  command->add_option("FILE", options->file, "Lexicon file")->required();
  command->add_flag("--json", options->json, "One JSON object");
  return {command, [options] { return CheckLexicon(options->file, options->json); }};
}

CommandLine AddMake(CLI::App& lexicon) {
  struct Options {
    std::vector<std::string> inputs;
    std::string output;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = lexicon.add_subcommand("make", "Make a lexicon of plain word lists");
  command->add_option("INPUT", options->inputs, "Word lists")->required();
  command->add_option("-o", options->output, "The lexicon file to write")->required();
  return {command, [options] { return MakeLexicon(options->inputs, options->output); }};
}

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
  std::vector<CommandLine> commands{AddFind(app), AddExplain(app), AddStats(app)};
  CLI::App* lexicon = app.add_subcommand("lexicon", "Check and make lexicon files");
  lexicon->require_subcommand(1);
  commands.push_back(AddCheck(*lexicon));
  commands.push_back(AddMake(*lexicon));

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
