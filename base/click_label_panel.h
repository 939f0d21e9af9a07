// A label that acts when it is clicked, or when Enter or the space bar is pressed on it.
#pragma once

#include <QColor>
#include <QLabel>

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

// A control's name, tooltip and description.
template <class Control>
Control* Named(Control* control, const QString& name, const QString& toolTip = {}) {
  control->setObjectName(name);
  if (!toolTip.isEmpty()) {
    control->setToolTip(toolTip);
    control->setAccessibleDescription(toolTip);
  }
  return control;
}

// A control's name and, for a screen reader only, what it is.
template <class Control>
Control* Described(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleDescription(description);
  return control;
}

}  // namespace quorvane
