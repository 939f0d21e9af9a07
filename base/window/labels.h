// A label that acts when it is clicked, or when Enter or the space bar is pressed on it.
#pragma once

#include <QColor>
#include <QLabel>

#include "base/window/controls.h"

namespace quorvane {

// Black or white, whichever is read better on the colour.
QColor ReadableInk(const QColor& ground);

// To a screen reader it is a button.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  ClickLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent);

  // What the text is the value of, for a label whose caption stands elsewhere.
  void SetCaption(const QString& caption) { caption_ = caption; }
  // Caption and value as a screen reader says them: "Exclude !: none".
  QString SpokenName() const;

 signals:
  void Clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString caption_;
};

// A label whose text stays readable in any colour: where the colour hardly differs from the background, the text stands
// on a dark plate.
class ReadableLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A short text that stands for a while over another control, as a tooltip looks; hidden at first. Its parent places it.
class NoteLabel : public QLabel {
  Q_OBJECT

 public:
  // An alert is said by a screen reader when it is shown.
  NoteLabel(const QString& name, bool alert, QWidget* parent);

  bool IsAlert() const { return alert_; }
  // Shows the text with its top or bottom right corner at `place`, in the parent's pixels.
  void ShowAt(const QPoint& place, Qt::Corner corner, const QString& text);

 private:
  bool alert_;
};

// A label that ends a text too long for it in an ellipsis, and asks for no room of its own.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A label with its name, plain text and, as tooltip and description for a screen reader, what it is.
QLabel* MakeLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent);
QLabel* MakeReadableLabel(const QString& name, const QString& toolTip, QWidget* parent);

}  // namespace quorvane
