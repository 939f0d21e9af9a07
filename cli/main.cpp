// The command line of the engine: `quorvane-cli`.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>

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

void AddSearchOptions(CLI::App* command, SearchArguments& arguments) {
  command->add_option("PATTERN", arguments.pattern, "The pattern, as typed into the window")->required();
  command->add_option("--type", arguments.typeName, "word, palindrome, anagram or exact")->capture_default_str();
  command->add_option("--include", arguments.include, "Characters that # stands for (default a-z)");
  command->add_option("--exclude", arguments.exclude, "Characters that ! does not stand for (default none)");
  command->add_option("--rack", arguments.rack, "Tiles that = stands for; - and ? are blanks (default none)");
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

int Run(int argc, const char* const* argv) {
  CLI::App app("Lists every word of a lexicon that fits a pattern.", "quorvane-cli");
  app.set_version_flag("--version", "quorvane-cli " + VersionText());
  app.require_subcommand(1);
  app.footer("quorvane-cli COMMAND --help says more. Exit status of every command: 2 when something failed.");

  FindArguments find;
  CLI::App* findCommand = app.add_subcommand("find",
                                             "List every word that fits, one a line (PATTERN -: each line of "
                                             "standard input)");
  findCommand->footer(PatternFooter() + "\n" + kStatusFooter);
  AddSearchOptions(findCommand, find.search);
  findCommand->add_option("--lexicon", find.lexicon, "Lexicon file (default: words.lex of the program's directory)");
  findCommand->add_option("--data-dir", find.dataDir, "The program's directory");
  findCommand->add_option("--length", find.lengthText, "Word length, N or MIN-MAX, 1 to 60");
  findCommand->add_option("--sort", find.sortName, "alpha, short or long")->capture_default_str();
  findCommand->add_flag("--upper", find.upper, "Words in upper case");
  findCommand->add_flag("--count", find.count, "Print the number of words only");
  findCommand->add_flag("--time", find.time, "Print the time of the search on standard error");
  findCommand->add_flag("--json", find.json, "One JSON object a line");
  findCommand->add_option("--seed", find.seed, "Seed of random words");
  findCommand->add_option("--save", find.saveFile, "Also write the results file");
  findCommand->add_option("--save-lexicon", find.saveLexicon, "Also write the words as a lexicon file");
  const CLI::Validator notEmpty([](const std::string& value) { return value.empty() ? "needs a value" : ""; }, "");
  for (const char* name : {"--lexicon", "--data-dir", "--length", "--save", "--save-lexicon", "--seed"}) {
    findCommand->get_option(name)->check(notEmpty);
  }

  SearchArguments explain;
  bool paste = false;
  CLI::App* explainCommand =
      app.add_subcommand("explain", "Print what the input check and the preparation make of a pattern, as JSON");
  AddSearchOptions(explainCommand, explain);
  explainCommand->footer(PatternFooter());
  explainCommand->add_flag("--paste", paste, "Take the pattern at once instead of character by character");

  std::string statsLexicon;
  std::string statsDataDir;
  CLI::App* statsCommand = app.add_subcommand("stats", "Print the lexicon's counts by letter and by length");
  statsCommand->add_option("--lexicon", statsLexicon, "Lexicon file")->check(notEmpty);
  statsCommand->add_option("--data-dir", statsDataDir, "The program's directory")->check(notEmpty);

  CLI::App* lexiconCommand = app.add_subcommand("lexicon", "Check and make lexicon files");
  lexiconCommand->require_subcommand(1);
  std::string checkFile;
  bool checkJson = false;
  CLI::App* checkCommand = lexiconCommand->add_subcommand("check", "Load a lexicon as the program would");
  checkCommand->add_option("FILE", checkFile, "Lexicon file")->required();
  checkCommand->add_flag("--json", checkJson, "One JSON object");
  std::vector<std::string> makeInputs;
  std::string makeOutput;
  CLI::App* makeCommand = lexiconCommand->add_subcommand("make", "Make a lexicon of plain word lists");
  makeCommand->add_option("INPUT", makeInputs, "Word lists")->required();
  makeCommand->add_option("-o", makeOutput, "The lexicon file to write")->required();

  const std::vector<std::string> arguments = SplitEmptyValues(argc, argv, [&](const std::string& name) {
    return TakesValue(*findCommand, name) || TakesValue(*explainCommand, name) || TakesValue(*statsCommand, name);
  });
  for (const CLI::App* command : {findCommand, explainCommand}) {
    if (arguments.empty() || arguments.front() != command->get_name()) {
      continue;
    }
    if (const std::string dashed = DashedPattern(*command, arguments); !dashed.empty()) {
      Complain("'" + dashed + "' is no option; a pattern that begins with - stands behind --, after all options: " +
               "quorvane-cli " + command->get_name() + " [options] -- -at");
      return kFailed;
    }
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

  const auto settled = [](auto& settings) {
    const auto problem = settings.Settle();
    if (problem) {
      Complain(*problem);
    }
    return !problem;
  };
  if (findCommand->parsed()) {
    return settled(find) ? Find(find) : kFailed;
  }
  if (explainCommand->parsed()) {
    return settled(explain) ? Explain(explain, paste) : kFailed;
  }
  if (statsCommand->parsed()) {
    return ShowStatistics(LexiconPath(statsLexicon, statsDataDir));
  }
  return checkCommand->parsed() ? CheckLexicon(checkFile, checkJson) : MakeLexicon(makeInputs, makeOutput);
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
