#include "results/window/sort_panel.h"

#include <QRadioButton>
#include <QVBoxLayout>

#include "base/window/controls.h"
#include "base/window/qt_text.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {

SortPanel::SortPanel(QWidget* parent) : QGroupBox("Sort order", parent) {
  setObjectName("frSortOrder");
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(2);
  layout->setContentsMargins(11, 5, 11, 7);
  for (const SortOrderRow& row : SortOrders()) {
    auto* button = Named(new QRadioButton(FromText(row.caption), this), FromText(row.button), FromText(row.toolTip));
    buttons_[row.order] = button;
    ShowsColour(button, ColourElement::MainText);
    layout->addWidget(button);
    connect(button, &QRadioButton::clicked, this, [this, order = row.order] { emit SortRequested(order); });
  }
  ShowsColour(this, ColourElement::GroupText, ColourUse::Title);
  Select(SortOrder::Alphabetic);
}

SortOrder SortPanel::Order() const {
  for (const auto& [order, button] : buttons_) {
    if (button->isChecked()) {
      return order;
    }
  }
  return SortOrder::Alphabetic;
}

void SortPanel::Select(SortOrder order) {
  buttons_[order]->setChecked(true);
}

void SortPanel::EnableLengthOrders() {
  for (const auto& [order, button] : buttons_) {
    button->setEnabled(true);
  }
}

}  // namespace quorvane
