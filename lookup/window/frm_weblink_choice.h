// The choice of the on-line resource.
#pragma once

#include <QDialog>

#include "settings/event_log.h"
#include "settings/settings_store.h"

namespace quorvane {

class FrmWeblinkChoice : public QDialog {
  Q_OBJECT

 public:
  // A click on a resource stores it at once; OK logs it.
  FrmWeblinkChoice(SettingsStore& settings, EventLog& log, QWidget* parent);
};

}  // namespace quorvane
