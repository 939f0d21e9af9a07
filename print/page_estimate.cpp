#include "print/page_estimate.h"

#include <cmath>
#include <limits>

namespace quorvane {

std::variant<PageEstimate, RunTimeError> EstimatePages(int64_t entries, int pageHeight, int fontSize, int columns) {
  constexpr double kLargest = std::numeric_limits<int16_t>::max();
  PageEstimate estimate;
  estimate.usableHeight = static_cast<float>(pageHeight) / kTwipsPerInch - 1.0F;
  // Rounded to the nearest whole number, ties to even, as all roundings here.
  const double lines =
      std::nearbyint(static_cast<double>(kLinesPerInchAtOnePoint) / fontSize *
                         (static_cast<double>(estimate.usableHeight) - static_cast<double>(kTopOfColumn)) +
                     0.5);
  if (lines < 1 || lines * columns > kLargest) {
    return MakeRunTimeError(kErrorOverflow);
  }
  estimate.linesPerColumn = static_cast<int>(lines);
  estimate.wordsPerPage = estimate.linesPerColumn * columns;
  // Any fraction above 0.0001 counts as a further page; an exact multiple adds none.
  const double pages = std::nearbyint(std::fabs(static_cast<double>(entries) / estimate.wordsPerPage + 0.4999));
  if (pages > kLargest) {
    return MakeRunTimeError(kErrorOverflow);
  }
  estimate.pages = static_cast<int>(pages);
  return estimate;
}

std::string EstimateText(const PageEstimate& estimate) {
  const std::string words = std::to_string(estimate.wordsPerPage) + " words per page.";
  if (estimate.pages > 0) {
    return "For current selection : " + std::to_string(estimate.pages) + " page(s), with " + words;
  }
  return "These settings will yield " + words;
}

std::string PagesText(const PageEstimate& estimate) {
  return std::to_string(estimate.pages) + " page(s), with up to " + std::to_string(estimate.wordsPerPage) +
         " words per page.";
}

}  // namespace quorvane
