#include "search/window/lists_panel.h"

#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"

namespace quorvane {
namespace {

struct ListLabels {
  ListKind kind;
  const char* name;
  const char* caption;
  const char* toolTip;
  const char* literalToolTip;
};

constexpr std::array kLabels = {
    ListLabels{ListKind::Include, "lblSelInc", "Include #", "Click to change SELECTION list (or press F2)",
               "Click to change SELECTION list"},
    ListLabels{ListKind::Exclude, "lblSelExc", "Exclude !", "Click to change EXCLUSION list (or press F3)",
               "Click to change EXCLUSION list"},
    ListLabels{ListKind::Scrabble, "lblSelScr", "Scrabble =", "Click to change SCRABBLE list (or press F4)",
               "Click to change SCRABBLE list"},
};

}  // namespace

ListsPanel::ListsPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("listsPanel");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  // The list of the first start, the whole alphabet, is not cut.
  setMinimumWidth(fontMetrics().horizontalAdvance("ABCDEFGHIJKLMNOPQRSTUVWXYZ") + 2);
  for (const ListLabels& labels : kLabels) {
    literals_[labels.kind] = new ClickLabel(QString(labels.name) + "Lit", labels.caption, labels.literalToolTip, this);
    lists_[labels.kind] = new ClickLabel(labels.name, "", labels.toolTip, this);
    // A long list is cut at the column's edge; its tooltip and dialog show the rest.
    lists_[labels.kind]->setMinimumWidth(1);
    lists_[labels.kind]->setMinimumHeight(fontMetrics().height());
    lists_[labels.kind]->setWordWrap(false);
    layout->addWidget(literals_[labels.kind]);
    layout->addWidget(lists_[labels.kind]);
    layout->addSpacing(6);
    for (ClickLabel* label : {literals_[labels.kind], lists_[labels.kind]}) {
      connect(label, &ClickLabel::Clicked, this, [this, kind = labels.kind] { emit ListClicked(kind); });
    }
  }
  lblLexLit_ = MakeLabel("lblLexLit", "Lexicon file in use:", {}, this);
  lblLex_ = new ClickLabel("lblLex", "", "Current lexicon", this);
  lblLex_->setMinimumWidth(1);
  layout->addWidget(lblLexLit_);
  layout->addWidget(lblLex_);
  connect(lblLex_, &ClickLabel::Clicked, this, &ListsPanel::LexiconClicked);
}

void ListsPanel::ShowList(ListKind kind, const std::string& list) {
  lists_[kind]->setText(FromBytes(list));
}

QString ListsPanel::ShownList(ListKind kind) const {
  return lists_.at(kind)->text();
}

void ListsPanel::ShowLexicon(const std::string& name) {
  lblLex_->setText(FromText(name));
}

QList<QWidget*> ListsPanel::MainTextControls() const {
  QList<QWidget*> controls{lblLexLit_, lblLex_};
  for (const auto& [kind, label] : literals_) {
    controls.push_back(label);
  }
  return controls;
}

QList<QWidget*> ListsPanel::WordChoiceControls() const {
  QList<QWidget*> controls;
  for (const auto& [kind, label] : lists_) {
    controls.push_back(label);
  }
  return controls;
}

}  // namespace quorvane
