// How many pages a list will need.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "base/run_time_error.h"

namespace quorvane {

inline constexpr int kTwipsPerInch = 1440;
inline constexpr float kTopOfColumn = 0.75F;  // Where the first line of a column stands, in inches from the top.
// One printed line takes font size / 56 inches.
inline constexpr float kLinesPerInchAtOnePoint = 56.0F;

struct PageEstimate {
  float usableHeight = 0;  // In inches.
  int linesPerColumn = 0;
  int wordsPerPage = 0;
  int pages = 0;
};

// `pageHeight` is the whole sheet's, in twips. More than 32,767 words a page, or a sheet too low for a single line, is
// an overflow error.
std::variant<PageEstimate, RunTimeError> EstimatePages(int64_t entries, int pageHeight, int fontSize, int columns);

// The line of the setup window.
std::string EstimateText(const PageEstimate& estimate);
inline constexpr const char* kNoPrinterText = "Please enter a valid printer name.";
// "3 page(s), with up to 132 words per page.", as the confirmation and the status line have it.
std::string PagesText(const PageEstimate& estimate);

}  // namespace quorvane
