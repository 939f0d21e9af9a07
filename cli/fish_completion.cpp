#include "cli/completion.h"
#include "results/search_command.h"

namespace quorvane::cli {
namespace {

constexpr std::string_view kHead = R"sh(# Completion of quorvane-cli for fish, made by `quorvane-cli completion fish`.

# Whether these words stand behind the program's name.
function __quorvane_cli_begins
    set -l words (commandline -opc)
    set -e words[1]
    test (count $words) -ge (count $argv); or return 1
    for i in (seq (count $argv))
        test "$words[$i]" = "$argv[$i]"; or return 1
    end
end

# Whether nothing else does.
function __quorvane_cli_is
    test (count (commandline -opc)) -eq (math (count $argv) + 1); and __quorvane_cli_begins $argv
end

# Asks the program, with the program's directory that the line names.
function __quorvane_cli_ask
    set -l words (commandline -opc)
    set -l directory
    for i in (seq (count $words))
        switch $words[$i]
            case '--data-dir=*'
                set directory (string replace -- '=~/' =$HOME/ $words[$i])
            case --data-dir
                set directory (string replace -- '=~/' =$HOME/ --data-dir=$words[(math $i + 1)])
        end
    end
    command quorvane-cli $argv $directory 2>/dev/null
end

complete -c quorvane-cli -f
)sh";

std::string ActionOf(const Offer& offer) {
  switch (offer.kind) {
    case OfferKind::Nothing:
      return " -x";
    case OfferKind::Words: {
      std::string text;
      for (const std::string& word : offer.words) {
        text += (text.empty() ? "" : " ") + word;
      }
      return " -x -a " + ShellWord(text);
    }
    case OfferKind::Files:
      return " -r -F";
    case OfferKind::Directories:
      return " -x -a '(__fish_complete_directories)'";
    case OfferKind::LexiconFiles:
      return " -x -a '(__fish_complete_suffix .lex)'";
    case OfferKind::Lexicons:
      return " -x -a '(__quorvane_cli_ask lexicon list --names; __fish_complete_suffix .lex)'";
    case OfferKind::Searches:
      return " -x -a '(__quorvane_cli_ask history --names)'";
  }
  return "";
}

// What may stand behind the commands `path`.
void AddCommand(const CommandFacts& command, const std::string& path, std::string& text) {
  const auto line = [&](const char* condition) { return "complete -c quorvane-cli -n '" + (condition + path) + "'"; };
  const char* const here = command.commands.empty() ? "__quorvane_cli_begins" : "__quorvane_cli_is";
  for (const OptionFacts& option : command.options) {
    text += line(here);
    for (const std::string& name : option.names) {
      text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    text += (option.takesValue ? ActionOf(option.offer) : "") + " -d " + ShellWord(option.help) + "\n";
  }
  for (const OptionFacts& argument : command.arguments) {
    if (argument.offer.kind != OfferKind::Nothing) {
      text += line(here) + ActionOf(argument.offer) + "\n";
    }
  }
  for (const CommandFacts& below : command.commands) {
    text += line(here) + " -a " + below.name + " -d " + ShellWord(below.help) + "\n";
    AddCommand(below, path + " " + below.name, text);
  }
}

}  // namespace

std::string FishCompletion(const CommandFacts& program) {
  std::string text(kHead);
  AddCommand(program, "", text);
  return text;
}

}  // namespace quorvane::cli
