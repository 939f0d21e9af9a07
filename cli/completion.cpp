#include "cli/completion.h"

#include <algorithm>
#include <array>

#include "cli/output.h"

namespace quorvane::cli {
namespace {

constexpr std::array kShells = {ShellRow{"bash", BashCompletion}, ShellRow{"zsh", ZshCompletion},
                                ShellRow{"fish", FishCompletion}};

OptionFacts FactsOf(CLI::Option& option) {
  OptionFacts facts;
  for (const std::string& name : option.get_snames()) {
    facts.names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    facts.names.push_back("--" + name);
  }
  if (facts.names.empty()) {
    facts.names.push_back(option.get_name(true));
  }
  facts.help = option.get_description();
  facts.takesValue = option.get_items_expected_max() > 0;
  facts.repeatable =
      option.get_items_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  facts.offer = OfferOf(option);
  return facts;
}

CommandFacts FactsOf(CLI::App& command) {
  CommandFacts facts{command.get_name(), command.get_description(), {}, {}, {}};
  for (CLI::Option* option : command.get_options()) {
    (option->nonpositional() ? facts.options : facts.arguments).push_back(FactsOf(*option));
  }
  for (CLI::App* below : command.get_subcommands([](CLI::App*) { return true; })) {
    facts.commands.push_back(FactsOf(*below));
  }
  return facts;
}

}  // namespace

std::string OptionFacts::Names() const {
  std::string joined;
  for (const std::string& name : names) {
    joined += (joined.empty() ? "" : "|") + name;
  }
  return joined;
}

std::span<const ShellRow> Shells() {
  return kShells;
}

int PrintCompletion(CLI::App& app, const std::string& shell) {
  const auto row = std::find_if(kShells.begin(), kShells.end(), [&](const ShellRow& r) { return r.option == shell; });
  if (row == kShells.end()) {
    Complain("'" + shell + "' is none of " + Listed(ChoicesOf(kShells), "and"));
    return kFailed;
  }
  Output output;
  output.Write(row->completion(FactsOf(app)));
  return output.Finish(kFound);
}

}  // namespace quorvane::cli
