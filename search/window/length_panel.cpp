#include "search/window/length_panel.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "base/limits.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/settings_table.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {

LengthPanel::LengthPanel(SettingsStore& settings, QWidget* parent)
    : QGroupBox("Word lengths", parent), settings_(settings) {
  setObjectName("frLen");
  rbAnyLen_ = Named(new QRadioButton("An&y size", this), "rbAnyLen", "All words of whatever length");
  rbSpecLen_ =
      Named(new QRadioButton("Specific Si&ze", this), "rbSpecLen", "Constrains words to be within certain lengths");
  cbLenFr_ = Named(new QComboBox(this), "cbLenFr", "Min. word length");
  cbLenTo_ = Named(new QComboBox(this), "cbLenTo", "Max. word length");
  cbLenFr_->setAccessibleName("Minimum length");
  cbLenTo_->setAccessibleName("Maximum length");
  // A list's name is its choice to a screen reader; what it is for is said by a label that is its own.
  for (QComboBox* box : {cbLenFr_, cbLenTo_}) {
    QLabel* label = MakeLabel({}, box->accessibleName(), {}, this);
    label->setBuddy(box);
    label->hide();
    box->setFocusPolicy(Qt::StrongFocus);  // Not by the wheel, which then belongs to what has the focus.
    box->installEventFilter(this);
  }
  QLabel* to = MakeLabel("lblToLit", "to", {}, this);
  for (QWidget* control :
       {static_cast<QWidget*>(rbAnyLen_), static_cast<QWidget*>(rbSpecLen_), static_cast<QWidget*>(to)}) {
    ShowsColour(control, ColourElement::MainText);
  }
  ShowsColour(this, ColourElement::GroupText, ColourUse::Title);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(2);
  layout->setContentsMargins(11, 5, 11, 7);
  layout->addWidget(rbAnyLen_);
  layout->addWidget(rbSpecLen_);
  auto* range = new QHBoxLayout;
  range->setSpacing(6);
  range->addWidget(cbLenFr_, 1);
  range->addWidget(to);
  range->addWidget(cbLenTo_, 1);
  layout->addLayout(range);
  rbAnyLen_->setChecked(true);
  SetRange(1, storedMax_);
  connect(rbAnyLen_, &QRadioButton::clicked, this, [this] {
    emit Status("Words of any length will be selected");
    emit Changed();
  });
  connect(rbSpecLen_, &QRadioButton::clicked, this, &LengthPanel::ShowRange);
  connect(cbLenFr_, &QComboBox::activated, this, &LengthPanel::MinimumChosen);
  connect(cbLenTo_, &QComboBox::activated, this, &LengthPanel::MaximumChosen);
}

bool LengthPanel::eventFilter(QObject* watched, QEvent* event) {
  const auto* box = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::Wheel && box != nullptr && !box->hasFocus()) {
    event->ignore();
    return true;
  }
  return QGroupBox::eventFilter(watched, event);
}

LengthRange LengthPanel::Range() const {
  return {rbAnyLen_->isChecked(), Min(), Max()};
}

int LengthPanel::Min() const {
  return cbLenFr_->currentText().toInt();
}

int LengthPanel::Max() const {
  return cbLenTo_->currentText().toInt();
}

void LengthPanel::SetRange(int min, int max) {
  cbLenFr_->clear();
  for (int length = 1; length <= kLongestLengthOffered; ++length) {
    cbLenFr_->addItem(QString::number(length));
  }
  cbLenFr_->setCurrentIndex(min - 1);
  storedMax_ = max;
  FillMaximum(min, max);
}

void LengthPanel::SelectAnyLength() {
  rbAnyLen_->setChecked(true);
}

void LengthPanel::Show(const LengthRange& range) {
  SetRange(range.min, range.max);
  (range.any ? rbAnyLen_ : rbSpecLen_)->setChecked(true);
}

void LengthPanel::FillMaximum(int min, int max) {
  cbLenTo_->clear();
  for (int length = min; length <= kLongestLengthOffered; ++length) {
    cbLenTo_->addItem(QString::number(length));
  }
  cbLenTo_->setCurrentIndex(qMax(max - min, 0));
}

void LengthPanel::MinimumChosen() {
  bool numeric = false;
  const int shown = cbLenTo_->currentText().toInt(&numeric);
  FillMaximum(Min(), numeric ? shown : storedMax_);
  SaveSetting(settings_, Setting::MinLength, std::to_string(Min()));
  MaximumChosen();
}

void LengthPanel::MaximumChosen() {
  storedMax_ = Max();
  SaveSetting(settings_, Setting::MaxLength, std::to_string(storedMax_));
  ShowRange();
}

void LengthPanel::ShowRange() {
  emit Status("Words with lengths between " + std::to_string(Min()) + " and " + std::to_string(Max()) +
              " only will be selected");
  emit Changed();
}

}  // namespace quorvane
