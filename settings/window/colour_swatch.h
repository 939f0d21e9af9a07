// A box filled with a colour, which can be clicked.
#pragma once

#include <QAbstractButton>

namespace quorvane {

class ColourSwatch : public QAbstractButton {
  Q_OBJECT

 public:
  explicit ColourSwatch(QWidget* parent);

  QColor Colour() const { return colour_; }
  void SetColour(const QColor& colour);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor colour_ = Qt::white;
};

}  // namespace quorvane
