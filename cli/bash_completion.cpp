#include "cli/completion.h"

namespace quorvane::cli {
namespace {

constexpr std::string_view kHead = R"sh(# Completion of quorvane-cli for bash, made by `quorvane-cli completion bash`.

# Asks the program, with the program's directory that the line names.
_quorvane_cli_ask() {
  local i word directory=()
  for ((i = 1; i + 1 < COMP_CWORD; i++)); do
    if [[ ${COMP_WORDS[i]} == --data-dir ]]; then
      [[ ${COMP_WORDS[i + 1]} == = ]] && ((i++))
      word=${COMP_WORDS[i + 1]//[\"\'\\]/}
      directory=(--data-dir "${word/#\~\//$HOME/}")
    fi
  done
  command quorvane-cli "$@" "${directory[@]}" 2>/dev/null
}

_quorvane_cli_words() {
  COMPREPLY+=($(compgen -W "$*" -- "$cur"))
}

# Those lines of standard input that begin as the word does, in its quotes.
_quorvane_cli_lines() {
  local line
  while IFS= read -r line; do
    [[ $line == "$cur"* ]] || continue
    [[ $line == */ ]] && compopt -o nospace
    case $quote in
      \') line=${line//\'/\'\\\'\'} ;;
      \") line=$(sed 's/[\\"$`]/\\&/g' <<<"$line") ;;
      *) printf -v line %q "$line" ;;
    esac
    COMPREPLY+=("$line$quote")
  done
}

_quorvane_cli_files() { compopt -o default; }
_quorvane_cli_directories() { compopt -o dirnames; }
_quorvane_cli_lexicon_files() {
  _quorvane_cli_lines < <(compgen -f -X '!*.lex' -- "$cur"; compgen -d -S / -- "$cur")
}
_quorvane_cli_lexicons() {
  _quorvane_cli_lexicon_files
  _quorvane_cli_lines < <(_quorvane_cli_ask lexicon list --names)
}
_quorvane_cli_searches() {
  _quorvane_cli_lines < <(_quorvane_cli_ask history --names)
}

_quorvane_cli() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} quote='' options='' i
  COMPREPLY=()
  if [[ $cur == = ]]; then
    cur=''
  elif [[ $prev == = ]]; then
    prev=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  if [[ $cur == [\"\']* ]]; then
    quote=${cur:0:1}
    cur=${cur:1}
  fi
  cur=${cur//\\/}
  local argument=:
  for ((i = 1; i < COMP_CWORD; i++)); do
    [[ ${COMP_WORDS[i]} == -- ]] && prev=''
  done
)sh";

constexpr std::string_view kTail = R"sh(  if [[ $prev && $cur == -* ]]; then
    _quorvane_cli_words "$options"
  else
    $argument
  fi
}
complete -F _quorvane_cli quorvane-cli
)sh";

std::string ActionOf(const Offer& offer) {
  switch (offer.kind) {
    case OfferKind::Nothing:
      return ":";
    case OfferKind::Words: {
      std::string text = "_quorvane_cli_words";
      for (const std::string& word : offer.words) {
        text += " " + word;
      }
      return text;
    }
    case OfferKind::Files:
      return "_quorvane_cli_files";
    case OfferKind::Directories:
      return "_quorvane_cli_directories";
    case OfferKind::LexiconFiles:
      return "_quorvane_cli_lexicon_files";
    case OfferKind::Lexicons:
      return "_quorvane_cli_lexicons";
    case OfferKind::Searches:
      return "_quorvane_cli_searches";
  }
  return ":";
}

std::string OptionNames(const CommandFacts& command) {
  std::string names;
  for (const OptionFacts& option : command.options) {
    for (const std::string& name : option.names) {
      names += (names.empty() ? "" : " ") + name;
    }
  }
  return names;
}

// What is offered behind the commands so far, of which the last is word `depth` of the line.
void AddCommand(const CommandFacts& command, int depth, std::string& text) {
  const std::string indent(static_cast<size_t>(depth) * 4 + 2, ' ');
  if (command.commands.empty()) {
    text += indent + "case $prev in\n";
    for (const OptionFacts& option : command.options) {
      if (option.takesValue) {
        text += indent + "  " + option.Names() + ") " + ActionOf(option.offer) + "; return ;;\n";
      }
    }
    text += indent + "esac\n" + indent + "options='" + OptionNames(command) + "'\n";
    if (!command.arguments.empty()) {
      text += indent + "argument='" + ActionOf(command.arguments.front().offer) + "'\n";
    }
    return;
  }
  std::string names;
  for (const CommandFacts& below : command.commands) {
    names += (names.empty() ? "" : " ") + below.name;
  }
  const std::string place = std::to_string(depth + 1);
  text += indent + "if ((COMP_CWORD == " + place + ")); then\n" + indent + "  _quorvane_cli_words " + names + " " +
          OptionNames(command) + "\n" + indent + "  return\n" + indent + "fi\n" + indent + "case ${COMP_WORDS[" +
          place + "]} in\n";
  for (const CommandFacts& below : command.commands) {
    text += indent + "  " + below.name + ")\n";
    AddCommand(below, depth + 1, text);
    text += indent + "    ;;\n";
  }
  text += indent + "esac\n";
}

}  // namespace

std::string BashCompletion(const CommandFacts& program) {
  std::string text(kHead);
  AddCommand(program, 0, text);
  return text.append(kTail);
}

}  // namespace quorvane::cli
