#include "print/page_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "results/summary.h"

namespace quorvane {
namespace {

constexpr int kLeftEdge = 100;
constexpr int kTitleTop = 300;
constexpr int kLegendTop = 580;
constexpr int kLegendStep = 165;
constexpr int kFooterGap = 400;  // Below the usable height.
constexpr int kRightMargin = 500;
constexpr int kFullAnagramShift = 500;
constexpr int kExactAnagramShift = 1000;
constexpr char kEllipsis = '\x85';

const PrintFont kTitleFont{"Arial", 12, false, true};
const PrintFont kLegendFont{"Arial", 8, false, false};
const PrintFont kFooterFont{"Arial", 9, false, false};

// The legend's order on the page.
constexpr std::array kLegendOrder = {ListKind::Include, ListKind::Scrabble, ListKind::Exclude};

// In every locale.
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

class Layout {
 public:
  explicit Layout(const PageLayoutInput& input)
      : input_(input),
        columnWidth_(static_cast<int>(std::nearbyint(static_cast<double>(input.pageWidth) / input.columns))) {}

  std::vector<PlacedText> Run() {
    placed_.reserve(input_.entryCount + 64);
    Header();
    const float lineHeight = static_cast<float>(input_.font.size) / kLinesPerInchAtOnePoint;
    for (size_t i = 0; i < input_.entryCount; ++i) {
      const int width = std::min(columnWidth_, input_.pageWidth - x_);
      Place(x_, static_cast<int>(std::nearbyint(y_ * kTwipsPerInch)), input_.font,
            Fit(input_.entry(i), input_.font, width));
      y_ += lineHeight;
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
    Title();
    int top = kLegendTop;
    for (const ListKind kind : kLegendOrder) {
      const ListFacts& facts = FactsOf(kind);
      if (input_.search.text.find(facts.wildcard) != std::string::npos) {
        Place(kLeftEdge, top, kLegendFont,
              Fit(std::string(facts.printLegend) + BracketForm(input_.search.lists.Of(kind)), kLegendFont,
                  input_.pageWidth - 2 * kLeftEdge));
        top += kLegendStep;
      }
    }
    Footer();
    y_ = kTopOfColumn;
    x_ = kLeftEdge;
    column_ = 1;
  }

  void Title() {
    const std::string title =
        Fit(HeaderLine(input_.found, input_.search), kTitleFont, input_.pageWidth - 2 * kLeftEdge);
    int x = input_.pageWidth / 2 - input_.measure(title, kTitleFont) / 2;
    if (input_.search.mode == WordType::AnagramExact) {
      x -= kExactAnagramShift;
    } else if (input_.search.mode == WordType::Anagram) {
      x -= kFullAnagramShift;
    }
    Place(std::max(x, kLeftEdge), kTitleTop, kTitleFont, title);
  }

  void Footer() {
    std::array<char, 16> time{};
    std::strftime(time.data(), time.size(), "%H:%M", &input_.now);
    const std::string day = std::to_string(input_.now.tm_mday) + " " +
                            std::string(kMonths[static_cast<size_t>(input_.now.tm_mon)]) + " " +
                            std::to_string(input_.now.tm_year + 1900);
    const int y = static_cast<int>(std::nearbyint(kTwipsPerInch * input_.estimate.usableHeight)) + kFooterGap;
    Place(kLeftEdge, y, kFooterFont, "Printed on " + day + " at " + time.data());
    const std::string page = "Page " + std::to_string(page_) + " of " + std::to_string(input_.estimate.pages);
    Place(input_.pageWidth - kRightMargin - input_.measure(page, kFooterFont), y, kFooterFont, page);
  }

  const PageLayoutInput& input_;
  const int columnWidth_;
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

}  // namespace quorvane
