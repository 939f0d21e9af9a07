// What stands where on which page. The printed pages are this list drawn.
#pragma once

#include <ctime>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "print/page_estimate.h"
#include "search/search.h"

namespace quorvane {

struct PrintFont {
  std::string name;
  int size = 12;  // In points.
  bool italic = false;
  bool bold = false;
};

struct PlacedText {
  int page = 1;
  int x = 0;  // In twips from the left edge of the sheet.
  int y = 0;  // The top of the line, in twips from the top of the sheet.
  PrintFont font;
  std::string text;  // 8-bit.
};

// The edges of the sheet as it lies that the printer does not reach, in twips.
struct SheetMargins {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

struct PageLayoutInput {
  size_t entryCount = 0;
  std::function<std::string(size_t)> entry;  // From 0.
  int pageWidth = 12240;                     // The whole sheet's, in twips.
  int pageHeight = 15840;
  SheetMargins margins;
  int columns = 1;
  PrintFont font;
  PageEstimate estimate;  // The footer's total of pages.
  size_t found = 0;       // Words, of the search below.
  Search search;
  std::tm now{};
  // The width of a text in twips.
  std::function<int(const std::string& text, const PrintFont& font)> measure;
};

// Newspaper columns: down the first, then the next, then a new page, with title, legend and footer on every page. A
// word keeps a blank's width free of the next column; one too long for that, or for what the printer's edge leaves of
// the last column, ends in an ellipsis.
// Columns stand from the left edge that the printer reaches. What it reaches at top and bottom moves a text only when
// that can't be reached: title and legend share what is left above the columns, smaller and side by side where it is
// tight; the footer rises, and the lines of a column move together above it.
std::vector<PlacedText> LayOutPages(const PageLayoutInput& input);

// The texts of one page, from 1.
std::span<const PlacedText> TextsOfPage(std::span<const PlacedText> texts, int page);

}  // namespace quorvane
