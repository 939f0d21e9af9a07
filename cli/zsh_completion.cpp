#include "cli/completion.h"
#include "results/search_command.h"

namespace quorvane::cli {
namespace {

constexpr std::string_view kHead = R"sh(#compdef quorvane-cli
# Completion of quorvane-cli for zsh, made by `quorvane-cli completion zsh`.

# Asks the program, with the program's directory that the line names.
_quorvane-cli_ask() {
  local -a directory
  [[ -n ${opt_args[--data-dir]} ]] && directory=(--data-dir ${(Q)opt_args[--data-dir]/#\~\//$HOME/})
  command quorvane-cli "$@" $directory 2>/dev/null
}

_quorvane-cli_lexicons() {
  local -a names=(${(f)"$(_quorvane-cli_ask lexicon list --names)"})
  _alternative 'lexicons:lexicon:compadd -a names' 'files:lexicon file:_files -g "*.lex"'
}

_quorvane-cli_searches() {
  local -a names=(${(f)"$(_quorvane-cli_ask history --names)"})
  local expl
  _wanted searches expl 'kept search' compadd -a names
}

)sh";

// Backslashes in front of some characters.
std::string Escaped(std::string_view text, std::string_view characters) {
  std::string escaped;
  for (const char c : text) {
    escaped += characters.find(c) == std::string_view::npos ? "" : "\\";
    escaped += c;
  }
  return escaped;
}

std::string ActionOf(const Offer& offer) {
  switch (offer.kind) {
    case OfferKind::Nothing:  // Without a message, behind which an option would not be inserted.
      return "{:}";
    case OfferKind::Words: {
      std::string text;
      for (const std::string& word : offer.words) {
        text += (text.empty() ? "(" : " ") + word;
      }
      return text + ")";
    }
    case OfferKind::Files:
      return "_files";
    case OfferKind::Directories:
      return "_files -/";
    case OfferKind::LexiconFiles:
      return "_files -g \"*.lex\"";
    case OfferKind::Lexicons:
      return "_quorvane-cli_lexicons";
    case OfferKind::Searches:
      return "_quorvane-cli_searches";
  }
  return "{:}";
}

// An option or an argument as `_arguments` has it.
void AddFacts(const OptionFacts& facts, std::string& text) {
  const bool option = facts.names.front().starts_with('-');
  for (const std::string& name : facts.names) {
    std::string spec = facts.repeatable ? "*" : "";
    if (option) {
      spec += name + (facts.takesValue && name.starts_with("--") ? "=" : "") + "[" + Escaped(facts.help, "[]\\") + "]";
    }
    if (!option || facts.takesValue) {
      spec += ":" + (option ? "value" : name) + ":" + ActionOf(facts.offer);
    }
    text += " \\\n    " + ShellWord(spec);
  }
}

// A function for each command that has others below it. Those come first.
void AddFunction(const CommandFacts& command, const std::string& name, std::string& text) {
  for (const CommandFacts& below : command.commands) {
    if (!below.commands.empty()) {
      AddFunction(below, name + "_" + below.name, text);
    }
  }
  text += name + "() {\n  local curcontext=$curcontext state line ret=1\n  local -A opt_args\n  _arguments -C -A '-*'";
  for (const OptionFacts& option : command.options) {
    AddFacts(option, text);
  }
  text +=
      " \\\n    '1:command:->command' '*::argument:->argument' && ret=0\n"
      "  case $state in\n    command)\n      local -a commands=(";
  for (const CommandFacts& below : command.commands) {
    text += "\n        " + ShellWord(below.name + ":" + Escaped(below.help, ":\\"));
  }
  text += ")\n      _describe -t commands command commands && ret=0 ;;\n    argument)\n      case $words[1] in\n";
  for (const CommandFacts& below : command.commands) {
    text += "  " + below.name + ")\n";
    if (!below.commands.empty()) {
      text += "    " + name + "_" + below.name + " && ret=0";
    } else {
      text += "    _arguments -S";
      for (const auto& facts : {below.options, below.arguments}) {
        for (const OptionFacts& each : facts) {
          AddFacts(each, text);
        }
      }
      text += " && ret=0";
    }
    text += " ;;\n";
  }
  text += "      esac ;;\n  esac\n  return ret\n}\n\n";
}

}  // namespace

std::string ZshCompletion(const CommandFacts& program) {
  std::string text(kHead);
  AddFunction(program, "_quorvane-cli", text);
  return text + "_quorvane-cli \"$@\"\n";
}

}  // namespace quorvane::cli
