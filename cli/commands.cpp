#include "cli/commands.h"

#include <algorithm>
#include <array>
#include <memory>

#include "cli/completion.h"
#include "cli/explain_command.h"
#include "cli/find_command.h"
#include "cli/has_command.h"
#include "cli/history_command.h"
#include "cli/lexicon_commands.h"
#include "cli/make_command.h"
#include "cli/offers.h"
#include "cli/output.h"
#include "results/search_command.h"
#include "search/conditions.h"
#include "search/wildcards.h"

namespace quorvane::cli {
namespace {

constexpr size_t kFooterWidth = 100;
constexpr const char* kStatusFooter =
    "Exit status: 0 words were found, 1 none, 2 the pattern was refused or something failed.";

std::string Dashed(std::string_view option) {
  return "--" + std::string(option);
}

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

const CLI::Validator& NotEmpty() {
  static const CLI::Validator validator([](const std::string& value) { return value.empty() ? "needs a value" : ""; },
                                        "");
  return validator;
}

// An option whose value is one of some names.
void AddChoice(CLI::App* command, const std::string& name, std::string& value, const std::string& help,
               const Choices& choices) {
  command->add_option(name, value, help + Listed(choices, "or"))
      ->capture_default_str()
      ->check(Offers({OfferKind::Words, choices}));
}

// The conditions in the order given, whatever their kinds.
void TakeConditions(const CLI::App& command, const std::array<CLI::Option*, kConditionKinds>& options,
                    SearchArguments& arguments) {
  std::array<size_t, kConditionKinds> taken{};
  for (const CLI::Option* option : command.parse_order()) {
    const auto i = static_cast<size_t>(std::find(options.begin(), options.end(), option) - options.begin());
    if (i < options.size()) {
      arguments.search.conditions.push_back({ConditionKinds()[i].kind, arguments.conditions[i].at(taken[i]++)});
    }
  }
}

void AddSearchOptions(CLI::App* command, SearchArguments& arguments) {
  CLI::Option* pattern = command->add_option("PATTERN", arguments.pattern,
                                             "The pattern, as typed into the window (with conditions default *)");
  AddChoice(command, Dashed(kTypeOption), arguments.typeName, "", ChoicesOf(WordTypes()));
  const auto addList = [&](ListKind kind, const char* help) {
    command->add_option(Dashed(FactsOf(kind).option), arguments.search.lists.Of(kind), help);
  };
  addList(ListKind::Include, "Characters that # stands for (default a-z)");
  addList(ListKind::Exclude, "Characters that ! does not stand for (default none)");
  addList(ListKind::Scrabble, "Tiles that = stands for; - and ? are blanks (default none)");
  std::array<CLI::Option*, kConditionKinds> options{};
  for (size_t i = 0; i < kConditionKinds; ++i) {
    const ConditionFacts& facts = ConditionKinds()[i];
    options[i] = command->add_option(Dashed(facts.option), arguments.conditions[i], std::string(facts.help))
                     ->expected(1)
                     ->allow_extra_args(false)
                     ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
  command->parse_complete_callback([=, &arguments] {
    TakeConditions(*command, options, arguments);
    const auto given = [command](const char* name) {
      const CLI::Option* option = command->get_option_no_throw(name);
      return option != nullptr && option->count() > 0;
    };
    if (pattern->count() > 0 || given("--named") || given("--stream")) {
      return;
    }
    if (arguments.search.conditions.empty()) {
      throw CLI::RequiredError(pattern->get_name());
    }
    arguments.pattern = "*";
  });
}

void AddDataDirOption(CLI::App* command, std::string& dataDir) {
  command->add_option(Dashed(kDataDirOption), dataDir, "The program's directory")
      ->check(NotEmpty())
      ->check(Offers({OfferKind::Directories}));
}

void AddLexiconOptions(CLI::App* command, std::string& lexicon, std::string& dataDir) {
  command
      ->add_option(Dashed(kLexiconOption), lexicon,
                   "Lexicon file, or its name in the program's directory (default: words.lex there)")
      ->check(NotEmpty())
      ->check(Offers({OfferKind::Lexicons}));
  AddDataDirOption(command, dataDir);
}

// Lists instead of a lexicon; each takes one value, so that a pattern may follow.
void AddListOption(CLI::App* command, std::vector<std::string>& lists) {
  command->add_option("--words", lists, "Word list instead of a lexicon, in any order (-: standard input; repeatable)")
      ->allow_extra_args(false)
      ->check(NotEmpty())
      ->check(Offers({OfferKind::Files}))
      ->excludes(Dashed(kLexiconOption));
}

// A search of the history instead of a pattern and what goes with it.
void AddNamedOption(CLI::App* command, std::string& named) {
  CLI::Option* pattern = command->get_option("PATTERN");
  CLI::Option* option = command->add_option("--named", named, "Run the search of that name in the history instead");
  option->check(NotEmpty())->check(Offers({OfferKind::Searches}))->excludes(pattern);
  option->excludes(Dashed(kTypeOption))->excludes(Dashed(kLengthOption));
  for (const ListKind kind : kListKinds) {
    option->excludes(Dashed(FactsOf(kind).option));
  }
  for (const ConditionFacts& facts : ConditionKinds()) {
    option->excludes(Dashed(facts.option));
  }
}

// Requests on standard input instead of a pattern, and what goes with `find -`.
void AddStreamOptions(CLI::App* command, FindArguments& find) {
  command->add_option("--between", find.between,
                      "With PATTERN -: a line between the words of one pattern and the next");
  CLI::Option* stream =
      command->add_flag("--stream", find.stream, "Answer each line of standard input, JSON or a pattern, with JSON");
  for (const char* other :
       {"PATTERN", "--named", "--between", "--time", "--format", "--color", "--json", "--save", "--save-lexicon"}) {
    stream->excludes(command->get_option(other));
  }
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
  AddLexiconOptions(command, find->lexicon, find->dataDir);
  command->add_option(Dashed(kLengthOption), find->asked.lengthText, "Word length, N or MIN-MAX, 1 to 60")
      ->check(NotEmpty());
  AddChoice(command, Dashed(kSortOption), find->sortName, "", ChoicesOf(SortOrders()));
  command->add_flag(Dashed(kUpperOption), find->upper, "Words in upper case");
  command->add_flag(Dashed(kCountOption), find->count, "Print the number of words only");
  command->add_option(Dashed(kLimitOption), find->limitText, "Print no more than so many words")->check(NotEmpty());
  AddChoice(command, "--format", find->formatName, "", ChoicesOf(ExportFormats()));
  AddChoice(command, "--color", find->colourName, "The pattern's own letters in bold: ", ColourChoices());
  command->add_flag(Dashed(kStrictOption), find->strict, "Refuse a pattern of which characters would be dropped");
  command->add_flag(Dashed(kExplainOption), find->explain, "Say the search in words on standard error");
  command->add_flag("--time", find->time, "Print the time of the search on standard error");
  command->add_flag("--json", find->json, "One JSON object a line");
  command->add_option("--seed", find->seed, "Seed of random words")->check(NotEmpty());
  command->add_option("--save", find->saveFile, "Also write the results file")
      ->check(NotEmpty())
      ->check(Offers({OfferKind::Files}));
  command->add_option("--save-lexicon", find->saveLexicon, "Also write the words as a lexicon file")
      ->check(NotEmpty())
      ->check(Offers({OfferKind::LexiconFiles}));
  AddListOption(command, find->wordLists);
  AddNamedOption(command, find->named);
  AddStreamOptions(command, *find);
  return {command, [find] {
            const bool ready = Settled(*find) && (find->named.empty() || TakeNamed(*find));
            return ready ? Find(*find) : kFailed;
          }};
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
  AddLexiconOptions(command, options->lexicon, options->dataDir);
  return {command, [options] { return ShowStatistics(options->lexicon, options->dataDir); }};
}

CommandLine AddHas(CLI::App& app) {
  auto has = std::make_shared<HasArguments>();
  CLI::App* command = app.add_subcommand("has",
                                         "Say of each word whether it is in the lexicon (-: each line of "
                                         "standard input)");
  command->footer("Exit status: 0 all words are in it, 1 not all, 2 something failed.");
  command->add_option("WORD", has->words, "Words; letter case does not count")->required();
  AddLexiconOptions(command, has->lexicon, has->dataDir);
  AddListOption(command, has->wordLists);
  return {command, [has] { return Has(*has); }};
}

CommandLine AddHistory(CLI::App& app) {
  struct Options {
    std::string dataDir;
    HistoryForm form = HistoryForm::Lines;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("history", "List the window's searches, newest last");
  command->footer("Exit status: 0 searches were listed, 1 none, 2 something failed.");
  CLI::Option* json = command->add_flag_callback(
      "--json", [options] { options->form = HistoryForm::Json; }, "One JSON object a line");
  command
      ->add_flag_callback(
          "--names", [options] { options->form = HistoryForm::Names; }, "The names alone, one a line")
      ->excludes(json);
  AddDataDirOption(command, options->dataDir);
  return {command, [options] { return ShowHistory(options->dataDir, options->form); }};
}

CommandLine AddCompletion(CLI::App& app) {
  auto shell = std::make_shared<std::string>();
  CLI::App* command = app.add_subcommand("completion", "Print the completion of this program for a shell");
  command->add_option("SHELL", *shell, Listed(ChoicesOf(Shells()), "or"))
      ->required()
      ->check(Offers({OfferKind::Words, ChoicesOf(Shells())}));
  return {command, [&app, shell] { return PrintCompletion(app, *shell); }};
}

CommandLine AddList(CLI::App& lexicon) {
  struct Options {
    std::string dataDir;
    bool names = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = lexicon.add_subcommand("list", "List the lexicons of the program's directory with their counts");
  command->add_flag("--names", options->names, "The names alone; nothing is loaded or made");
  AddDataDirOption(command, options->dataDir);
  return {command,
          [options] { return options->names ? ListLexiconNames(options->dataDir) : ListLexicons(options->dataDir); }};
}

CommandLine AddCheck(CLI::App& lexicon) {
  struct Options {
    std::string file;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* command = lexicon.add_subcommand("check", "Load a lexicon as the program would");
  command->add_option("FILE", options->file, "Lexicon file")->required()->check(Offers({OfferKind::LexiconFiles}));
  command->add_flag("--json", options->json, "One JSON object");
  return {command, [options] { return CheckLexicon(options->file, options->json); }};
}

CommandLine AddMake(CLI::App& lexicon) {
  auto make = std::make_shared<MakeArguments>();
  CLI::App* command = lexicon.add_subcommand("make", "Make a lexicon of word lists");
  command->add_option("INPUT", make->inputs, "Word lists (-: standard input)")
      ->required()
      ->check(Offers({OfferKind::Files}));
  command->add_option("-o", make->output, "The lexicon file to write")
      ->required()
      ->check(Offers({OfferKind::LexiconFiles}));
  command->add_option("--column", make->column, "Which column holds the words, from 1")->capture_default_str();
  command
      ->add_option("--separator", make->separatorName,
                   Listed(ChoicesOf(Separators()), "or") +
                       ", or the character itself (default any; auto with --column or --phrases)")
      ->check(Offers({OfferKind::Words, ChoicesOf(Separators())}));
  command->add_flag("--heading", make->heading, "The first line of each list is a heading");
  AddChoice(command, "--phrases", make->phrasesName,
            "What becomes of several words in a column: ", ChoicesOf(PhrasesRows()));
  return {command, [make] { return Settled(*make) ? MakeLexicon(*make) : kFailed; }};
}

}  // namespace

std::vector<CommandLine> AddCommands(CLI::App& app) {
  std::vector<CommandLine> commands{AddFind(app), AddExplain(app), AddStats(app),
                                    AddHas(app),  AddHistory(app), AddCompletion(app)};
  CLI::App* lexicon = app.add_subcommand("lexicon", "List, check and make lexicon files");
  lexicon->require_subcommand(1);
  commands.push_back(AddList(*lexicon));
  commands.push_back(AddCheck(*lexicon));
  commands.push_back(AddMake(*lexicon));
  return commands;
}

}  // namespace quorvane::cli
