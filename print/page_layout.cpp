#include "print/page_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "results/summary.h"
#include "search/conditions.h"

namespace quorvane {
namespace {

constexpr int kLeftEdge = 100;
constexpr int kTitleTop = 300;
constexpr int kTitleStep = 280;
constexpr int kLegendStep = 165;
constexpr int kFooterGap = 400;  // Below the usable height.
constexpr int kRightMargin = 500;
constexpr int kTwipsOfLinePerPoint = 23;  // What a line of text takes.
constexpr int kLegendSize = 8;            // In points.
constexpr int kSmallestLegendSize = 5;
// What title and one line of legends need at least above the columns.
constexpr int kLeastHeader = ((kTitleStep + kLegendStep) * kSmallestLegendSize + kLegendSize - 1) / kLegendSize;
constexpr int kFullAnagramShift = 500;
constexpr int kExactAnagramShift = 1000;
constexpr char kEllipsis = '\x85';

const PrintFont kTitleFont{"Arial", 12, false, true};
const PrintFont kLegendFont{"Arial", kLegendSize, false, false};
const PrintFont kFooterFont{"Arial", 9, false, false};

constexpr const char* kBetweenLegends = "   ";

// The legend's order on the page.
constexpr std::array kLegendOrder = {ListKind::Include, ListKind::Scrabble, ListKind::Exclude};

// In every locale.
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

int TwipsOf(float inches) {
  return static_cast<int>(std::nearbyint(inches * kTwipsPerInch));
}

int LineOf(const PrintFont& font) {
  return font.size * kTwipsOfLinePerPoint;
}

class Layout {
 public:
  explicit Layout(const PageLayoutInput& input)
      : input_(input),
        left_(input.margins.left + kLeftEdge),
        width_(input.pageWidth - input.margins.left - input.margins.right),
        columnWidth_(static_cast<int>(std::nearbyint(static_cast<double>(width_) / input.columns))),
        lineStep_(static_cast<float>(input.font.size) / kLinesPerInchAtOnePoint),
        blank_(input.measure(" ", input.font)) {
    PlaceBody();
  }

  std::vector<PlacedText> Run() {
    placed_.reserve(input_.entryCount + 64);
    Header();
    for (size_t i = 0; i < input_.entryCount; ++i) {
      const int width = column_ < input_.columns ? columnWidth_ - blank_
                                                 : std::min(columnWidth_, width_ - (x_ - input_.margins.left));
      Place(x_, LineTop(), input_.font, Fit(input_.entry(i), input_.font, width));
      y_ += lineStep_;
      if (y_ >= input_.estimate.usableHeight && i + 1 < input_.entryCount) {
        NextColumn();
      }
    }
    return std::move(placed_);
  }

 private:
  void Place(int x, int y, const PrintFont& font, std::string text) {
    placed_.push_back({page_, x, y, font, std::move(text)});
  }

  // Where footer and columns stand: as they are unless the printer does not reach them there.
  void PlaceBody() {
    const int reached = input_.pageHeight - input_.margins.bottom;
    const int footerTop = TwipsOf(input_.estimate.usableHeight) + kFooterGap;
    footerTop_ = std::min(footerTop, reached - LineOf(kFooterFont));
    bodyTop_ = std::max(TwipsOf(kTopOfColumn), input_.margins.top + kLeastHeader);
    float last = kTopOfColumn;
    while (last + lineStep_ < input_.estimate.usableHeight) {
      last += lineStep_;
    }
    lastTop_ = TwipsOf(last);
    if (footerTop_ < footerTop) {
      lastTop_ = std::min(lastTop_, footerTop_ - LineOf(input_.font));
    }
    lastTop_ = std::max(lastTop_, bodyTop_);
    columnMoved_ = bodyTop_ != TwipsOf(kTopOfColumn) || lastTop_ != TwipsOf(last);
    lastY_ = last;
  }

  // Of the current line.
  int LineTop() const {
    if (!columnMoved_) {
      return TwipsOf(y_);
    }
    const float whole = lastY_ - kTopOfColumn;
    const float part = whole > 0 ? (y_ - kTopOfColumn) / whole : 0;
    return bodyTop_ + static_cast<int>(std::nearbyint(part * static_cast<float>(lastTop_ - bodyTop_)));
  }

  void NextColumn() {
    y_ = kTopOfColumn;
    x_ += columnWidth_;
    ++column_;
    if (column_ > input_.columns) {
      ++page_;
      Header();
    }
  }

  // The text, or as much of it as fits into the width with an ellipsis behind it.
  std::string Fit(std::string text, const PrintFont& font, int width) const {
    if (input_.measure(text, font) <= width) {
      return text;
    }
    size_t low = 0;
    size_t high = text.size();
    while (low < high) {
      const size_t middle = (low + high + 1) / 2;
      if (input_.measure(text.substr(0, middle) + kEllipsis, font) <= width) {
        low = middle;
      } else {
        high = middle - 1;
      }
    }
    return text.substr(0, low) + kEllipsis;
  }

  void Header() {
    std::vector<std::string> legends = Legends();
    int top = std::max(kTitleTop, input_.margins.top);
    const int room = bodyTop_ - top;
    const int width = width_ - 2 * kLeftEdge;
    PrintFont legendFont = kLegendFont;
    const auto needed = [&legends] { return kTitleStep + kLegendStep * static_cast<int>(legends.size()); };
    if (needed() > room && legends.size() > 1) {
      for (size_t i = 1; i < legends.size(); ++i) {
        legends[0] += kBetweenLegends + legends[i];
      }
      legends.resize(1);
      while (legendFont.size > kSmallestLegendSize && input_.measure(legends[0], legendFont) > width) {
        --legendFont.size;
      }
    }
    const double scale = std::min(1.0, static_cast<double>(room) / needed());
    const auto scaled = [scale](int size) { return static_cast<int>(size * scale); };
    PrintFont titleFont = kTitleFont;
    titleFont.size = scaled(kTitleFont.size);
    legendFont.size = std::min(legendFont.size, scaled(kLegendSize));
    Title(top, titleFont);
    top += scaled(kTitleStep);
    for (const std::string& legend : legends) {
      Place(left_, top, legendFont, Fit(legend, legendFont, width));
      top += scaled(kLegendStep);
    }
    Footer();
    y_ = kTopOfColumn;
    x_ = left_;
    column_ = 1;
  }

  std::vector<std::string> Legends() const {
    std::vector<std::string> legends;
    const std::vector<ListKind> named = ListsNamedIn(input_.search);
    for (const ListKind kind : kLegendOrder) {
      if (std::find(named.begin(), named.end(), kind) != named.end()) {
        legends.push_back(std::string(FactsOf(kind).printLegend) + BracketForm(input_.search.lists.Of(kind)));
      }
    }
    for (std::string& condition : ConditionTexts(input_.search)) {
      legends.push_back(std::move(condition));
    }
    return legends;
  }

  void Title(int top, const PrintFont& font) {
    const std::string title = Fit(HeaderLine(input_.found, input_.search), font, width_ - 2 * kLeftEdge);
    int x = input_.margins.left + width_ / 2 - input_.measure(title, font) / 2;
    if (input_.search.mode == WordType::AnagramExact) {
      x -= kExactAnagramShift;
    } else if (input_.search.mode == WordType::Anagram) {
      x -= kFullAnagramShift;
    }
    Place(std::max(x, left_), top, font, title);
  }

  void Footer() {
    std::array<char, 16> time{};
    std::strftime(time.data(), time.size(), "%H:%M", &input_.now);
    const std::string day = std::to_string(input_.now.tm_mday) + " " +
                            std::string(kMonths[static_cast<size_t>(input_.now.tm_mon)]) + " " +
                            std::to_string(input_.now.tm_year + 1900);
    Place(left_, footerTop_, kFooterFont, "Printed on " + day + " at " + time.data());
    const std::string page = "Page " + std::to_string(page_) + " of " + std::to_string(input_.estimate.pages);
    Place(input_.margins.left + width_ - kRightMargin - input_.measure(page, kFooterFont), footerTop_, kFooterFont,
          page);
  }

  const PageLayoutInput& input_;
  const int left_;   // Of the first column, in twips as all places and widths.
  const int width_;  // Between the edges that the printer reaches.
  const int columnWidth_;
  const float lineStep_;  // In inches.
  const int blank_;
  int footerTop_ = 0;
  int bodyTop_ = 0;  // Of the first line of a full column and of the last.
  int lastTop_ = 0;
  float lastY_ = 0;  // Where the last line stands when nothing is moved, in inches.
  bool columnMoved_ = false;
  std::vector<PlacedText> placed_;
  int page_ = 1;
  int column_ = 1;
  int x_ = 0;
  float y_ = 0;
};

}  // namespace

std::vector<PlacedText> LayOutPages(const PageLayoutInput& input) {
  return Layout(input).Run();
}

std::span<const PlacedText> TextsOfPage(std::span<const PlacedText> texts, int page) {
  const auto first =
      std::partition_point(texts.begin(), texts.end(), [&](const PlacedText& t) { return t.page < page; });
  const auto last = std::partition_point(first, texts.end(), [&](const PlacedText& t) { return t.page == page; });
  return {first, last};
}

}  // namespace quorvane
