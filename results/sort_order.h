// The orders in which found words are shown: one table for the window, its status texts and the command line.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "lexicon/lexicon.h"
#include "search/emit.h"

namespace quorvane {

enum class SortOrder { Alphabetic, ShortestFirst, LongestFirst };

inline constexpr std::string_view kSortOption = "sort";  // On the command line, without its dashes.

struct SortOrderRow {
  SortOrder order;
  std::string_view option;  // The name on the command line.
  std::string_view meaning;
  std::string_view button;  // Object name, caption and tooltip of its button.
  std::string_view caption;
  std::string_view toolTip;
  std::string_view announcement;  // What the status line says in bold before the sort; empty for nothing.
  std::string_view status;        // What it says then.
  // Puts the words, given in the order found, into this order; null for the order found itself. `sorted` is overwritten
  // and keeps its memory.
  void (*arrange)(const Lexicon& lexicon, std::span<const WordNumber> words, FoundNumbers& sorted);
};

std::span<const SortOrderRow> SortOrders();
const SortOrderRow& RowOf(SortOrder order);
std::optional<SortOrder> SortOrderOfOption(std::string_view option);

}  // namespace quorvane
