#include "search/window/conditions_panel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>

#include "base/text.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {
namespace {

struct BoxText {
  ConditionKind kind;
  const char* name;
  const char* caption;
  const char* toolTip;
};

constexpr BoxText kBoxes[] = {
    {ConditionKind::And, "tbAnd", "and", "A second pattern that must fit, too"},
    {ConditionKind::Not, "tbNot", "but not", "A pattern that must not fit"},
    {ConditionKind::With, "tbWith", "with", "Letters that must all occur, each as often as it stands here"},
    {ConditionKind::Without, "tbWithout", "without", "Letters that must not occur"},
    {ConditionKind::From, "tbFrom", "from tiles",
     "A rack that the word must be laid from, each tile once; ? is a blank"},
};

}  // namespace

ConditionsPanel::ConditionsPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("conditionsPanel");
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const BoxText& text : kBoxes) {
    QLabel* caption = MakeLabel({}, text.caption, {}, this);
    ShowsColour(caption, ColourElement::MainText);
    auto* box = Named(new QLineEdit(this), text.name, text.toolTip);
    box->setAccessibleName(text.caption);
    box->setMinimumWidth(60);
    caption->setBuddy(box);
    layout->addWidget(caption);
    layout->addWidget(box, text.kind == ConditionKind::And || text.kind == ConditionKind::Not ? 3 : 2);
    boxes_.push_back({text.kind, box});
    connect(box, &QLineEdit::textChanged, this, [this, made = boxes_.back()] { Clean(made); });
    connect(box, &QLineEdit::returnPressed, this, &ConditionsPanel::SearchRequested);
  }
  hide();
}

void ConditionsPanel::Clean(const Box& box) {
  const bool pattern = box.kind == ConditionKind::And || box.kind == ConditionKind::Not;
  const auto letters = [&box](const std::string& text, size_t) {
    return KeepLetters(text, box.kind == ConditionKind::From, true);
  };
  if (HoldsKept(*box.box, pattern ? check_ : KeptText(letters))) {
    emit Changed();
  }
}

std::vector<Condition> ConditionsPanel::Conditions() const {
  std::vector<Condition> conditions;
  for (const Box& box : boxes_) {
    if (!isHidden() && !box.box->text().isEmpty()) {
      conditions.push_back({box.kind, ToBytes(box.box->text())});
    }
  }
  return conditions;
}

ConditionRow ConditionsPanel::Row() const {
  ConditionRow row;
  row.open = !isHidden();
  for (const Box& box : boxes_) {
    row.texts[static_cast<size_t>(box.kind)] = ToBytes(box.box->text());
  }
  return row;
}

void ConditionsPanel::Show(const ConditionRow& row) {
  for (const Box& box : boxes_) {
    const QSignalBlocker quiet(box.box);
    box.box->setText(FromBytes(row.texts[static_cast<size_t>(box.kind)]));
  }
  setVisible(row.open);
}

void ConditionsPanel::FocusFirst() {
  boxes_.front().box->setFocus();
}

}  // namespace quorvane
