#include "results/window/appearance_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "base/window/labels.h"
#include "settings/settings_table.h"
#include "settings/window/colour_scheme.h"
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
  auto* bold = Named(new QPushButton("Bold", this), "cmdV", "Emboldens list text");
  auto* italic = Named(new QPushButton("Italic", this), "cmdW", "Italicises list text");
  auto* textColour = Named(new ColourSwatch(this), "picColour_0", "Changes text colour of list");
  auto* backColour = Named(new ColourSwatch(this), "picColour_1", "Changes background colour of list");
  textColour->setAccessibleName("Text colour of list");
  backColour->setAccessibleName("Background colour of list");
  auto* textCaption = MakeLabel("lblTextCol", "text colour", {}, this);
  auto* backCaption = MakeLabel("lblBack", "back colour", {}, this);
  ShowsColour(textColour, ColourElement::ResultsText, ColourUse::Swatch);
  ShowsColour(backColour, ColourElement::ResultsBack, ColourUse::Swatch);
  ShowsColour(textCaption, ColourElement::MainText);
  ShowsColour(backCaption, ColourElement::MainText);
  ShowsColour(this, ColourElement::GroupText, ColourUse::Title);
  auto* layout = new QGridLayout(this);
  layout->setVerticalSpacing(4);
  layout->setContentsMargins(11, 5, 11, 7);
  layout->addWidget(cmdFontToggle_, 0, 0, 1, 2);
  layout->addWidget(bold, 1, 0);
  layout->addWidget(italic, 1, 1);
  layout->addWidget(textColour, 2, 0, Qt::AlignRight);
  layout->addWidget(textCaption, 2, 1);
  layout->addWidget(backColour, 3, 0, Qt::AlignRight);
  layout->addWidget(backCaption, 3, 1);
  SetFixedWidth(false);
  connect(cmdFontToggle_, &QPushButton::clicked, this, &AppearancePanel::ToggleFont);
  connect(bold, &QPushButton::clicked, this, &AppearancePanel::BoldClicked);
  connect(italic, &QPushButton::clicked, this, &AppearancePanel::ItalicClicked);
  connect(textColour, &QAbstractButton::clicked, this, &AppearancePanel::TextColourClicked);
  connect(backColour, &QAbstractButton::clicked, this, &AppearancePanel::BackColourClicked);
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

QFont AppearancePanel::ListFont() const {
  QFont font = this->font();
  font.setFamilies({fixed_ ? kFixedFamily : kProportionalFamily});
  font.setStyleHint(fixed_ ? QFont::Monospace : QFont::SansSerif);
  font.setFixedPitch(fixed_);
  font.setBold(bold_);
  font.setItalic(italic_);
  return font;
}

}  // namespace quorvane
