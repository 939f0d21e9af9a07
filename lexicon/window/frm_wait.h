// Says that a lexicon is being loaded, while it is.
#pragma once

#include <QDialog>

namespace quorvane {

class FrmWait : public QDialog {
  Q_OBJECT

 public:
  explicit FrmWait(QWidget* parent);
  // Shows the window and paints it at once: what follows does not yield.
  void ShowNow();
};

}  // namespace quorvane
