#include "base/click_label_panel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace quorvane {

ClickLabel::ClickLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent)
    : QLabel(text, parent) {
  Named(this, name, toolTip);
  setTextFormat(Qt::PlainText);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    emit Clicked();
  }
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
    emit Clicked();
  } else {
    QLabel::keyPressEvent(event);
  }
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (hasFocus()) {
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
}

QLabel* MakeLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  return Named(label, name, toolTip);
}

}  // namespace quorvane
