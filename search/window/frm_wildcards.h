// The wildcard summary as a window beside the work: a button for each character puts it into the pattern.
#pragma once

#include <QDialog>

namespace quorvane {

class FrmWildcards : public QDialog {
  Q_OBJECT

 public:
  explicit FrmWildcards(QWidget* parent);

 signals:
  void CharacterChosen(char character);
};

}  // namespace quorvane
