#include "results/window/result_options_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/window/labels.h"

namespace quorvane {

ResultOptionsPanel::ResultOptionsPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("resultOptionsPanel");
  cbUpperCase_ = Named(new QCheckBox("&Upper case", this), "cbUpperCase", "Sets list to upper case");
  cbSaveToFile_ = Named(new QCheckBox("Autosa&ve list", this), "cbSaveToFile", "Save list automatically");
  cmdClear_ = Named(new QPushButton("Clear list", this), "cmdClear", "Clear the list of words");
  cmdPrint_ = Described(new QPushButton("&Print", this), "cmdPrint", "Print the list of words");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(cbUpperCase_);
  layout->addWidget(cbSaveToFile_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdClear_);
  buttons->addWidget(cmdPrint_);
  layout->addLayout(buttons);
  connect(cbSaveToFile_, &QCheckBox::clicked, this, &ResultOptionsPanel::AutoSaveChosen);
  connect(cmdClear_, &QPushButton::clicked, this, &ResultOptionsPanel::ClearRequested);
  connect(cmdPrint_, &QPushButton::clicked, this, &ResultOptionsPanel::PrintRequested);
}

bool ResultOptionsPanel::UpperCase() const {
  return cbUpperCase_->isChecked();
}

bool ResultOptionsPanel::AutoSave() const {
  return cbSaveToFile_->isChecked();
}

void ResultOptionsPanel::SetAutoSave(bool on) {
  cbSaveToFile_->setChecked(on);
}

QList<QWidget*> ResultOptionsPanel::MainTextControls() const {
  return {cbUpperCase_, cbSaveToFile_};
}

}  // namespace quorvane
