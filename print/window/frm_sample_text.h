// Edits the text of the print sample.
#pragma once

#include <QDialog>

#include "base/window/door.h"
#include "settings/settings_store.h"

namespace quorvane {

class FrmSampleText : public QDialog {
  Q_OBJECT

 public:
  FrmSampleText(SettingsStore& settings, Door& door, QWidget* parent);
};

}  // namespace quorvane
