// A label that acts when it is clicked, or when Enter or the space bar is pressed on it.
#pragma once

#include <QColor>
#include <QLabel>

#include "base/window/controls.h"

namespace quorvane {

// Black or white, whichever is read better on the colour.
QColor ReadableInk(const QColor& ground);

class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  ClickLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent);

 signals:
  void Clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

// A label whose text stays readable in any colour: where the colour hardly differs from the background, the text stands
// on a dark plate.
class ReadableLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A label with its name, plain text and, as tooltip and description for a screen reader, what it is.
QLabel* MakeLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent);
QLabel* MakeReadableLabel(const QString& name, const QString& toolTip, QWidget* parent);

}  // namespace quorvane
