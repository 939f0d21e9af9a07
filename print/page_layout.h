// What stands where on which page. The printed pages are this list drawn.
#pragma once

#include <ctime>
#include <functional>
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

struct PageLayoutInput {
  size_t entryCount = 0;
  std::function<std::string(size_t)> entry;  // From 0.
  int pageWidth = 12240;                     // That the printer can print on, in twips.
  int pageHeight = 15840;
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
// word too long for its column, or for what the sheet's edge leaves of the last one, ends in an ellipsis.
std::vector<PlacedText> LayOutPages(const PageLayoutInput& input);

}  // namespace quorvane
