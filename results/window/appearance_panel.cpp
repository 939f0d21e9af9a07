#include "results/window/appearance_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "base/window/labels.h"
#include "settings/settings_table.h"
#include "settings/window/colour_swatch.h"

namespace quorvane {
namespace {

constexpr const char* kProportionalFamily = "MS Sans Serif";
constexpr const char* kFixedFamily = "Courier New";
// The caption names the font that a click would switch to.
constexpr const char* kFixedCaption = "Fix&ed width";
constexpr const char* kProportionalCaption = "Proportiona&l";

}  // namespace

AppearancePanel::AppearancePanel(SettingsStore& settings, QWidget* parent)
    : QGroupBox("Results box", parent), settings_(settings) {
  setObjectName("frListProp");
  cmdFontToggle_ = Named(new QPushButton("Fo&nt", this), "cmdFontToggle", "Switch font type");
  cmdV_ = Named(new QPushButton("Bold", this), "cmdV", "Emboldens list text");
  cmdW_ = Named(new QPushButton("Italic", this), "cmdW", "Italicises list text");
  textColour_ = Named(new ColourSwatch(this), "picColour_0", "Changes text colour of list");
  backColour_ = Named(new ColourSwatch(this), "picColour_1", "Changes background colour of list");
  textColour_->setAccessibleName("Text colour of list");
  backColour_->setAccessibleName("Background colour of list");
  lblTextCol_ = MakeLabel("lblTextCol", "text colour", {}, this);
  lblBack_ = MakeLabel("lblBack", "back colour", {}, this);
  auto* layout = new QGridLayout(this);
  layout->setVerticalSpacing(4);
  layout->setContentsMargins(11, 5, 11, 7);
  layout->addWidget(cmdFontToggle_, 0, 0, 1, 2);
  layout->addWidget(cmdV_, 1, 0);
  layout->addWidget(cmdW_, 1, 1);
  layout->addWidget(textColour_, 2, 0, Qt::AlignRight);
  layout->addWidget(lblTextCol_, 2, 1);
  layout->addWidget(backColour_, 3, 0, Qt::AlignRight);
  layout->addWidget(lblBack_, 3, 1);
  SetFixedWidth(false);
  connect(cmdFontToggle_, &QPushButton::clicked, this, &AppearancePanel::ToggleFont);
  connect(cmdV_, &QPushButton::clicked, this, &AppearancePanel::ToggleBold);
  connect(cmdW_, &QPushButton::clicked, this, &AppearancePanel::ToggleItalic);
  connect(textColour_, &QAbstractButton::clicked, this, &AppearancePanel::TextColourClicked);
  connect(backColour_, &QAbstractButton::clicked, this, &AppearancePanel::BackColourClicked);
}

void AppearancePanel::SetFixedWidth(bool fixed) {
  fixed_ = fixed;
  cmdFontToggle_->setText(fixed ? kProportionalCaption : kFixedCaption);
  emit FontChanged();
}

void AppearancePanel::SetBold(bool bold) {
  bold_ = bold;
  emit FontChanged();
}

void AppearancePanel::SetItalic(bool italic) {
  italic_ = italic;
  emit FontChanged();
}

void AppearancePanel::ToggleFont() {
  SetFixedWidth(!fixed_);
  SaveSetting(settings_, Setting::ListFont, fixed_ ? "Fixed" : "Prop");
  emit Status(fixed_ ? "Fixed-width font specified" : "Proportional font specified");
}

void AppearancePanel::ToggleBold() {
  SetBold(!bold_);
  SaveYesNo(settings_, Setting::ListBold, bold_);
}

void AppearancePanel::ToggleItalic() {
  SetItalic(!italic_);
  SaveYesNo(settings_, Setting::ListItalic, italic_);
}

QFont AppearancePanel::ListFont() const {
  QFont font = this->font();
  font.setFamilies({fixed_ ? kFixedFamily : kProportionalFamily});
  font.setStyleHint(fixed_ ? QFont::Monospace : QFont::SansSerif);
  font.setFixedPitch(fixed_);
  font.setBold(bold_);
  font.setItalic(italic_);
  return font;
}

void AppearancePanel::ShowColours(const QColor& text, const QColor& back) {
  textColour_->SetColour(text);
  backColour_->SetColour(back);
}

QList<QWidget*> AppearancePanel::MainTextControls() const {
  return {lblTextCol_, lblBack_};
}

}  // namespace quorvane
