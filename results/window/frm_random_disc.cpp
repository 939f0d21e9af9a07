#include "results/window/frm_random_disc.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "settings/settings_table.h"

namespace quorvane {
namespace {

constexpr const char* kNotSorted =
    "Please be advised that when using the 'Random Words' wildcard character (~) to generate a list of words, that "
    "list "
    "will not be sorted into alphabetic order.  It will contain the words in the order they were generated.";
constexpr const char* kByLength =
    "In a similar manner, sorting this list by word length (either into \"short -> long\" or \"long -> short\") will "
    "result in the words being grouped by word length, but not by alphabetic order.";
constexpr int kWidth = 460;

}  // namespace

FrmRandomDisc::FrmRandomDisc(SettingsStore& settings, QWidget* parent) : QDialog(parent) {
  setObjectName("frmRandomDisc");
  setWindowTitle("Random words - information");
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  for (const auto& [name, text] : {std::pair{"lblNotSorted", kNotSorted}, std::pair{"lblByLength", kByLength}}) {
    QLabel* label = MakeLabel(name, text, {}, this);
    label->setWordWrap(true);
    label->setMinimumWidth(kWidth);
    layout->addWidget(label);
  }
  auto* dontDisplay = Named(new QCheckBox("Don't display this information again", this), "cbDontDisplay");
  layout->addWidget(dontDisplay);
  auto* ok = Named(new QPushButton("OK", this), "cmdOK");
  layout->addWidget(ok, 0, Qt::AlignRight);
  ok->setFocus();
  connect(ok, &QPushButton::clicked, this, [this, dontDisplay, &settings] {
    if (dontDisplay->isChecked()) {
      SaveYesNo(settings, Setting::RandomDisclaimer, false);
    }
    accept();
  });
}

}  // namespace quorvane
