#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/limits.h"
#include "base/text.h"
#include "lexicon/lexicon.h"
#include "search/pattern.h"

namespace quorvane::cli {
namespace {

struct ColourRow {
  Colour colour;
  std::string_view option;
};

constexpr std::array kColours = {ColourRow{Colour::Auto, "auto"}, ColourRow{Colour::Always, "always"},
                                 ColourRow{Colour::Never, "never"}};

std::optional<Colour> ColourOfOption(std::string_view option) {
  const auto row =
      std::find_if(kColours.begin(), kColours.end(), [&](const ColourRow& r) { return r.option == option; });
  return row == kColours.end() ? std::nullopt : std::optional(row->colour);
}

std::optional<std::string> CheckList(ListKind kind, const std::string& characters) {
  const ListFacts& facts = FactsOf(kind);
  const std::string option = "--" + std::string(facts.option);
  for (size_t i = 0; i < characters.size(); ++i) {
    const char c = characters[i];
    const std::string shown = "'" + std::string(1, c) + "'";
    if (!IsLetter(c) && !(facts.blankTiles && (c == '-' || c == '?'))) {
      return option + ": " + shown + " in '" + characters + "' is not allowed; it takes letters" +
             (facts.blankTiles ? ", - and ?" : "");
    }
    if (!facts.repeats && characters.find(c) < i) {
      return option + ": " + shown + " stands more than once in '" + characters + "'";
    }
  }
  return std::nullopt;
}

bool IsLength(std::string_view text, int& length) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit) && ParseInteger(text, length) && length >= 1 &&
         length <= kLongestLengthOffered;
}

}  // namespace

Choices ColourChoices() {
  return ChoicesOf(kColours);
}

std::optional<std::string> TooLongText(std::string_view pattern) {
  if (pattern.size() <= kMaxPatternLength) {
    return std::nullopt;
  }
  return "the pattern has " + FormatThousands(static_cast<int64_t>(pattern.size())) + " characters, more than the " +
         FormatThousands(kMaxPatternLength) + " that can be searched";
}

Search UsualSearch() {
  Search search;
  for (const ListKind kind : kListKinds) {
    search.lists.Of(kind) = FactsOf(kind).usual;
  }
  return search;
}

std::optional<std::string> SearchArguments::Settle() {
  const auto named = WordTypeOfOption(typeName);
  if (!named) {
    return "--type: '" + typeName + "' is none of " + Listed(ChoicesOf(WordTypes()), "and");
  }
  search.mode = *named;
  search.noun = FactsOf(*named).noun;
  for (const ListKind kind : kListKinds) {
    if (auto problem = CheckList(kind, search.lists.Of(kind))) {
      return problem;
    }
  }
  if (!lengthText.empty()) {
    const size_t dash = lengthText.find('-');
    const std::string from = lengthText.substr(0, dash);
    const std::string to = dash == std::string::npos ? from : lengthText.substr(dash + 1);
    LengthRange& lengths = search.lengths;
    lengths.any = false;
    if (!IsLength(from, lengths.min) || !IsLength(to, lengths.max) || lengths.min > lengths.max) {
      return "--length: '" + lengthText + "' is neither a number nor MIN-MAX from 1 to " +
             std::to_string(kLongestLengthOffered);
    }
  }
  return std::nullopt;
}

std::optional<std::string> FindArguments::Settle() {
  if (auto problem = asked.Settle()) {
    return problem;
  }
  const auto sorted = SortOrderOfOption(sortName);
  if (!sorted) {
    return "--sort: '" + sortName + "' is none of " + Listed(ChoicesOf(SortOrders()), "and");
  }
  order = *sorted;
  if (auto problem = SettleOutput()) {
    return problem;
  }
  if (FromStandardInput() && (!saveFile.empty() || !saveLexicon.empty())) {
    return std::string(saveFile.empty() ? "--save-lexicon" : "--save") +
           " saves one search; it does not go with find -";
  }
  if (between && (!FromStandardInput() || json)) {
    return "--between goes with find - only, and not with --json";
  }
  if (FromStandardInput() && std::find(wordLists.begin(), wordLists.end(), "-") != wordLists.end()) {
    return "standard input is either the patterns or the list";
  }
  return std::nullopt;
}

std::optional<std::string> FindArguments::SettleOutput() {
  const auto named = ExportFormatOfOption(formatName);
  if (!named) {
    return "--format: '" + formatName + "' is none of " + Listed(ChoicesOf(ExportFormats()), "and");
  }
  format = *named;
  if (json && format != ExportFormat::Lines) {
    return "--format " + formatName + " does not go with --json";
  }
  const auto chosen = ColourOfOption(colourName);
  if (!chosen) {
    return "--color: '" + colourName + "' is none of " + Listed(ChoicesOf(kColours), "and");
  }
  colour = *chosen;
  if (!limitText.empty()) {
    size_t number = 0;
    const char* const end = limitText.data() + limitText.size();
    const auto [stopped, error] = std::from_chars(limitText.data(), end, number);
    if (error != std::errc() || stopped != end) {
      return "--limit: '" + limitText + "' is no whole number from 0";
    }
    limit = number;
  }
  return std::nullopt;
}

std::vector<std::string> SplitEmptyValues(int argc, const char* const* argv,
                                          const std::function<bool(const std::string& name)>& takesValue) {
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--") {
      arguments.insert(arguments.end(), argv + i, argv + argc);
      break;
    }
    const std::string name = argument.substr(0, argument.size() - 1);
    if (argument.starts_with("--") && argument.ends_with('=') && takesValue(name)) {
      arguments.push_back(name);
      arguments.emplace_back();
    } else {
      arguments.push_back(argument);
    }
  }
  return arguments;
}

}  // namespace quorvane::cli
