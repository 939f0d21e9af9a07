#include "print/window/frm_sample_text.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/settings_table.h"

namespace quorvane {

FrmSampleText::FrmSampleText(SettingsStore& settings, Door& door, QWidget* parent) : QDialog(parent) {
  setObjectName("frmSampleText");
  setWindowTitle("Sample text");
  auto* layout = new QVBoxLayout(this);
  QLabel* prompt = MakeLabel("lblSample", "Text of the print sample:", {}, this);
  auto* text = Named(new QLineEdit(FromText(GetSetting(settings, Setting::SampleText)), this), "tbSampleText",
                     "The text that shows what the print font looks like");
  text->setAccessibleName("Sample text");
  text->setMinimumWidth(380);
  prompt->setBuddy(text);
  layout->addWidget(prompt);
  layout->addWidget(text);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = Named(new QPushButton("OK", this), "cmdOK");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel");
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  connect(ok, &QPushButton::clicked, this, [this, text, &settings, &door] {
    if (text->text().isEmpty()) {
      door.Show(this, "You must enter at least one character", false, "Entry error");
      text->setFocus();
      return;
    }
    SaveSetting(settings, Setting::SampleText, ToText(text->text()));
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace quorvane
