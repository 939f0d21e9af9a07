#include "lookup/window/lookup_panel.h"

#include <QDesktopServices>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lookup/resources.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {

LookupPanel::LookupPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("lookupPanel");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  cmdWebLink_ = Named(new QPushButton("&Definition (F5)", this), "cmdWebLink",
                      "Click to find out the definition (or thesaurus entry) for the current highlighted word");
  lblWebLink_ = new ClickLabel("lblWebLink", "", "Click here to change the definition online resource!", this);
  lblWebLink_->SetCaption("Online resource");
  ShowsColour(lblWebLink_, ColourElement::MainText);
  lblWebLink_->setAlignment(Qt::AlignHCenter);
  layout->addWidget(cmdWebLink_);
  layout->addWidget(lblWebLink_);
  connect(cmdWebLink_, &QPushButton::clicked, this, &LookupPanel::LookupRequested);
  connect(lblWebLink_, &ClickLabel::Clicked, this, &LookupPanel::ResourceClicked);
}

void LookupPanel::ShowResource(const std::string& setting) {
  if (const LookupResource* resource = FindLookupResource(setting)) {
    lblWebLink_->setText(FromText(resource->label));
  }
}

void LookupPanel::AllowLookup(bool allowed) {
  cmdWebLink_->setEnabled(allowed);
}

bool OpenLookup(const std::string& setting, const std::string& word) {
  const auto address = LookupAddress(setting, word);
  if (!address) {
    return false;
  }
  QDesktopServices::openUrl(QUrl(FromBytes(*address), QUrl::TolerantMode));
  return true;
}

}  // namespace quorvane
