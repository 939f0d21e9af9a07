// The notice before random words are shown.
#pragma once

#include <QDialog>

#include "settings/settings_store.h"

namespace quorvane {

class FrmRandomDisc : public QDialog {
  Q_OBJECT

 public:
  FrmRandomDisc(SettingsStore& settings, QWidget* parent);
};

}  // namespace quorvane
