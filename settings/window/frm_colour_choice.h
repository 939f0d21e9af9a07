// The window in which one element's colour is chosen.
#pragma once

#include <QDialog>
#include <array>

#include "settings/colours.h"

class QLineEdit;
class QSlider;
class QGridLayout;

namespace quorvane {

class ColourSwatch;

// What goes in and comes out: a window closed without a choice leaves `current` as it is.
struct ColourExchange {
  std::string caption;
  std::string current;  // "&H" and eight digits; the result.
  std::string defaultColour;
  std::string custom;  // Six digits, blue, green, red.
};

class FrmColourChoice : public QDialog {
  Q_OBJECT

 public:
  FrmColourChoice(ColourExchange& exchange, QWidget* parent);

 private:
  struct Channel {
    QSlider* slider = nullptr;
    QLineEdit* box = nullptr;
  };

  void MakePalette(QGridLayout* grid);
  void MakeChannel(Channel& channel, const QString& name, int value, QGridLayout* grid, int row);
  void Choose(size_t box);
  void ShowCustom();
  void BoxEdited(Channel& channel);
  Rgb Custom() const;
  bool eventFilter(QObject* watched, QEvent* event) override;

  ColourExchange& exchange_;
  std::array<ColourSwatch*, kPaletteBoxes> boxes_{};
  Channel red_;
  Channel green_;
  Channel blue_;
  const Channel* typedInto_ = nullptr;  // Its box keeps what is typed while its slider follows.
};

}  // namespace quorvane
