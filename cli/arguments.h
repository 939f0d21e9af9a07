// The command line's options in the form that the commands use.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/choices.h"
#include "results/export.h"
#include "results/sort_order.h"
#include "search/search.h"

namespace quorvane::cli {

// A search as it is without any option.
Search UsualSearch();

struct SearchArguments {
  std::string pattern;
  std::string typeName = "word";
  std::string lengthText;
  std::array<std::vector<std::string>, kConditionKinds> conditions;  // Of each kind those given.

  // What is asked for, but for the text. Its lists are as usual until others are given.
  Search search = UsualSearch();
  // Fills the last from the others; the text of what is wrong, if anything is.
  std::optional<std::string> Settle();
};

// Options that a request of a stream can have as keys, too, without their dashes.
inline constexpr std::string_view kLimitOption = "limit";
inline constexpr std::string_view kCountOption = "count";
inline constexpr std::string_view kStrictOption = "strict";
inline constexpr std::string_view kExplainOption = "explain";

enum class Colour { Auto, Always, Never };

struct FindArguments {
  SearchArguments asked;
  std::string lexicon;
  std::string dataDir;
  std::vector<std::string> wordLists;  // Searched instead of a lexicon.
  std::string named;                   // A search of the history, asked for instead of a pattern.
  std::string sortName = "alpha";
  bool upper = false;
  bool count = false;
  bool time = false;
  bool explain = false;
  bool json = false;
  std::optional<uint32_t> seed;
  std::string saveFile;
  std::string saveLexicon;
  bool strict = false;
  std::string formatName = "lines";
  std::string limitText;
  std::string colourName = "auto";
  bool stream = false;                 // Each line of standard input is a request.
  std::optional<std::string> between;  // Stands between the words of one line and the next.

  SortOrder order = SortOrder::Alphabetic;
  ExportFormat format = ExportFormat::Lines;
  std::optional<size_t> limit;  // How many words are shown.
  Colour colour = Colour::Auto;
  // Patterns are read from standard input, a line each.
  bool FromStandardInput() const { return stream || (named.empty() && asked.pattern == "-"); }
  std::optional<std::string> Settle();

 private:
  std::optional<std::string> SettleOutput();
};

Choices ColourChoices();

// What is said of a pattern that is too long to be searched; nothing of any other.
std::optional<std::string> TooLongText(std::string_view pattern);

// Arguments with "--include=" and its like split in two, so that an empty value stays the option's own.
// `takesValue` says of an option's name whether the option has one.
std::vector<std::string> SplitEmptyValues(int argc, const char* const* argv,
                                          const std::function<bool(const std::string& name)>& takesValue);

}  // namespace quorvane::cli
