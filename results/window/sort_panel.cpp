#include "results/window/sort_panel.h"

#include <QRadioButton>
#include <QVBoxLayout>

#include "base/window/labels.h"

namespace quorvane {

SortPanel::SortPanel(QWidget* parent) : QGroupBox("Sort order", parent) {
  setObjectName("frSortOrder");
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(2);
  layout->setContentsMargins(11, 5, 11, 7);
  const auto add = [&](SortOrder order, const QString& name, const QString& caption, const QString& toolTip) {
    buttons_[order] = Named(new QRadioButton(caption, this), name, toolTip);
    layout->addWidget(buttons_[order]);
    connect(buttons_[order], &QRadioButton::clicked, this, [this, order] { emit SortRequested(order); });
  };
  add(SortOrder::Alphabetic, "rbSortAlpha", "Alpha&betic", "Sorts A-Z");
  add(SortOrder::ShortestFirst, "rbSortLength", "Sho&rt -> long", "Sorts words, shortest to longest");
  add(SortOrder::LongestFirst, "rbSortLengthRev", "Lon&g -> short", "Sorts words, longest to shortest");
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
  buttons_[SortOrder::ShortestFirst]->setEnabled(true);
  buttons_[SortOrder::LongestFirst]->setEnabled(true);
}

QList<QWidget*> SortPanel::MainTextControls() const {
  QList<QWidget*> controls;
  for (const auto& [order, button] : buttons_) {
    controls.push_back(button);
  }
  return controls;
}

}  // namespace quorvane
