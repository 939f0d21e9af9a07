#include "results/window/result_options_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/window/controls.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {

ResultOptionsPanel::ResultOptionsPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("resultOptionsPanel");
  cbUpperCase_ = Named(new QCheckBox("&Upper case", this), "cbUpperCase", "Sets list to upper case");
  cbSaveToFile_ = Named(new QCheckBox("Autosa&ve list", this), "cbSaveToFile", "Save list automatically");
  auto* clear = Named(new QPushButton("Clear list", this), "cmdClear", "Clear the list of words");
  cmdPrint_ = Described(new QPushButton("&Print", this), "cmdPrint", "Print the list of words");
  ShowsColour(cbUpperCase_, ColourElement::MainText);
  ShowsColour(cbSaveToFile_, ColourElement::MainText);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(cbUpperCase_);
  layout->addWidget(cbSaveToFile_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(clear);
  buttons->addWidget(cmdPrint_);
  layout->addLayout(buttons);
  connect(cbUpperCase_, &QCheckBox::clicked, this, &ResultOptionsPanel::UpperCaseChosen);
  connect(cbSaveToFile_, &QCheckBox::clicked, this, &ResultOptionsPanel::AutoSaveChosen);
  connect(clear, &QPushButton::clicked, this, &ResultOptionsPanel::ClearRequested);
  connect(cmdPrint_, &QPushButton::clicked, this, &ResultOptionsPanel::PrintRequested);
}

bool ResultOptionsPanel::UpperCase() const {
  return cbUpperCase_->isChecked();
}

void ResultOptionsPanel::SetAutoSave(bool on) {
  cbSaveToFile_->setChecked(on);
}

void ResultOptionsPanel::AllowPrint(bool allowed) {
  cmdPrint_->setEnabled(allowed);
}

}  // namespace quorvane
