#include "results/sort_order.h"

#include <array>

#include "results/sorting.h"

namespace quorvane {
namespace {

template <bool LongestFirst>
void ByLength(const Lexicon& lexicon, std::span<const WordNumber> words, FoundNumbers& sorted) {
  SortByLength(lexicon, words, LongestFirst, sorted);
}

constexpr std::array kOrders = {
    SortOrderRow{SortOrder::Alphabetic, "alpha", "the lexicon's order", "rbSortAlpha", "Alpha&betic", "Sorts A-Z", "",
                 "Sorting into alphabetic order ...", nullptr},
    SortOrderRow{SortOrder::ShortestFirst, "short", "shortest first", "rbSortLength", "Sho&rt -> long",
                 "Sorts words, shortest to longest", "", "Sorting into word-length order (shortest -> longest) ...",
                 ByLength<false>},
    SortOrderRow{SortOrder::LongestFirst, "long", "longest first", "rbSortLengthRev", "Lon&g -> short",
                 "Sorts words, longest to shortest",
                 "Words will be displayed in descending length order (Longest to Shortest)",
                 "Sorting into word-length order (longest -> shortest) ...", ByLength<true>},
};

}  // namespace

std::span<const SortOrderRow> SortOrders() {
  return kOrders;
}

const SortOrderRow& RowOf(SortOrder order) {
  return kOrders[static_cast<size_t>(order)];
}

std::optional<SortOrder> SortOrderOfOption(std::string_view option) {
  for (const SortOrderRow& row : kOrders) {
    if (row.option == option) {
      return row.order;
    }
  }
  return std::nullopt;
}

}  // namespace quorvane
