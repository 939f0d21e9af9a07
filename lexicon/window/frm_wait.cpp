#include "lexicon/window/frm_wait.h"

#include <QCoreApplication>
#include <QVBoxLayout>

#include "base/window/door.h"
#include "base/window/labels.h"

namespace quorvane {

FrmWait::FrmWait(QWidget* parent) : QDialog(parent) {
  setObjectName("frmWait");
  setProperty(kGivesWay, true);
  setWindowTitle("Loading lexicon file ...");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(36, 28, 36, 28);
  layout->addWidget(MakeLabel("lblIniMsg", "Please wait while the lexicon file is being loaded ...", {}, this));
}

void FrmWait::ShowNow() {
  // The window system places, maps and exposes windows through events; user input stays in the queue meanwhile.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (parentWidget() != nullptr) {
    adjustSize();
    move(parentWidget()->frameGeometry().center() - rect().center());
  }
  show();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  repaint();
}

}  // namespace quorvane
