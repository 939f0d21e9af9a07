#include "print/window/page_drawing.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <memory>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

constexpr int kTwipsPerPoint = 20;

// A font whose units are twips.
QFont ScreenFont(const PrintFont& font) {
  QFont made;
  made.setFamilies({FromText(font.name)});
  made.setPixelSize(font.size * kTwipsPerPoint);
  made.setItalic(font.italic);
  made.setBold(font.bold);
  made.setHintingPreference(QFont::PreferNoHinting);
  // Any spacing, this one of no effect too, keeps letters apart that a font would join in one glyph: whoever searches
  // the document or copies from it finds letters.
  made.setLetterSpacing(QFont::PercentageSpacing, 100);
  return made;
}

bool SameFont(const PrintFont& a, const PrintFont& b) {
  return a.size == b.size && a.italic == b.italic && a.bold == b.bold && a.name == b.name;
}

// Keeps the metrics of the font asked for last: a list is measured in one font, header lines apart.
class Ruler {
 public:
  int operator()(const std::string& text, const PrintFont& font) {
    if (metrics_ == nullptr || !SameFont(font, font_)) {
      font_ = font;
      metrics_ = std::make_shared<QFontMetricsF>(ScreenFont(font));
    }
    return qCeil(metrics_->horizontalAdvance(FromBytes(text)));
  }

 private:
  PrintFont font_;
  std::shared_ptr<QFontMetricsF> metrics_;
};

}  // namespace

std::function<int(const std::string& text, const PrintFont& font)> TextRuler() {
  return Ruler();
}

void DrawTexts(QPainter& painter, std::span<const PlacedText> texts) {
  painter.setPen(Qt::black);
  const PrintFont* font = nullptr;
  double ascent = 0;
  for (const PlacedText& placed : texts) {
    if (font == nullptr || !SameFont(*font, placed.font)) {
      font = &placed.font;
      const QFont made = ScreenFont(*font);
      painter.setFont(made);
      ascent = QFontMetricsF(made).ascent();
    }
    painter.drawText(QPointF(placed.x, placed.y + ascent), FromBytes(placed.text));
  }
}

const char* DrawPages(QPagedPaintDevice& sheets, std::span<const PlacedText> pages) {
  QPainter painter;
  if (!painter.begin(&sheets)) {
    return "FP";
  }
  const double scale = sheets.logicalDpiX() / static_cast<double>(kTwipsPerInch);
  painter.scale(scale, scale);
  for (int page = 1; !pages.empty() && page <= pages.back().page; ++page) {
    if (page > 1 && !sheets.newPage()) {
      return "NP";
    }
    DrawTexts(painter, TextsOfPage(pages, page));
  }
  return painter.end() ? nullptr : "FP";
}

}  // namespace quorvane
