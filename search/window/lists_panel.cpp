#include "search/window/lists_panel.h"

#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {
namespace {

constexpr size_t kMostShown = 1000;  // Characters; the column shows some thirty.

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
    auto* literal = new ClickLabel(QString(labels.name) + "Lit", labels.caption, labels.literalToolTip, this);
    auto* list = new ClickLabel(labels.name, "", labels.toolTip, this);
    list->SetCaption(labels.caption);
    lists_[labels.kind] = list;
    ShowsColour(literal, ColourElement::MainText);
    ShowsColour(list, ColourElement::WordChoiceText);
    // A long list is cut at the column's edge; its tooltip and dialog show the rest.
    list->setMinimumWidth(1);
    list->setMinimumHeight(fontMetrics().height());
    list->setWordWrap(false);
    layout->addWidget(literal);
    layout->addWidget(list);
    layout->addSpacing(6);
    for (ClickLabel* label : {literal, list}) {
      connect(label, &ClickLabel::Clicked, this, [this, kind = labels.kind] { emit ListClicked(kind); });
    }
  }
  QLabel* caption = MakeLabel("lblLexLit", "Lexicon file in use:", {}, this);
  ShowsColour(caption, ColourElement::MainText);
  lblLex_ = new ClickLabel("lblLex", "", "Current lexicon", this);
  lblLex_->SetCaption("Lexicon file in use");
  lblLex_->setMinimumWidth(1);
  ShowsColour(lblLex_, ColourElement::MainText);
  layout->addWidget(caption);
  layout->addWidget(lblLex_);
  connect(lblLex_, &ClickLabel::Clicked, this, &ListsPanel::LexiconClicked);
}

void ListsPanel::ShowList(ListKind kind, const std::string& list) {
  lists_[kind]->setText(FromBytes(std::string_view(list).substr(0, kMostShown)));
}

void ListsPanel::ShowLexicon(const std::string& name) {
  lblLex_->setText(FromText(name));
}

}  // namespace quorvane
