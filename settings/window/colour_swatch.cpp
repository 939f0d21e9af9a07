#include "settings/window/colour_swatch.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

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
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (hasFocus()) {  // Dark and light: one of them is seen on any colour.
    painter.setBrush(Qt::NoBrush);
    for (const auto& [inset, ring] : {std::pair{1, Qt::black}, {2, Qt::white}, {3, Qt::black}}) {
      painter.setPen(ring);
      painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
    }
  }
}

void ColourSwatch::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace quorvane
