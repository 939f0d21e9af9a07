// The about box.
#pragma once

#include <QDialog>

#include "app/services.h"
#include "app/session.h"

namespace quorvane {

class FrmAbout : public QDialog {
  Q_OBJECT

 public:
  FrmAbout(const Services& services, const Session& session, QWidget* parent);
};

// The first of the desktop's system information tools that is installed; empty when none is.
QString SystemInformationTool();

}  // namespace quorvane
