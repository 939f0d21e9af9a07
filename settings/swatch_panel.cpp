#include "settings/swatch_panel.h"

#include <QFontMetrics>
#include <QPainter>

namespace quorvane {

ColourSwatch::ColourSwatch(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourSwatch::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

QSize ColourSwatch::sizeHint() const {
  const int side = fontMetrics().height() + 8;
  return {side * 5 / 4, side};
}

void ColourSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setBrush(colour_);
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (hasFocus()) {
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
  }
}

}  // namespace quorvane
