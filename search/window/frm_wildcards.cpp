#include "search/window/frm_wildcards.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <algorithm>
#include <vector>

#include "base/window/beside.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

// The characters that a row of the summary speaks of.
std::vector<char> CharactersOf(const WildcardSummaryRow& row) {
  std::vector<char> characters;
  for (const char c : row.typed) {
    if (FindWildcard(c) != nullptr && std::find(characters.begin(), characters.end(), c) == characters.end()) {
      characters.push_back(c);
    }
  }
  return characters;
}

}  // namespace

FrmWildcards::FrmWildcards(QWidget* parent) : QDialog(parent) {
  setObjectName("frmWildcards");
  setWindowTitle("Wildcards");
  BesideTheWork(this);
  auto* grid = new QGridLayout(this);
  grid->setVerticalSpacing(3);
  int line = 0;
  for (const WildcardSummaryRow& row : WildcardSummary()) {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(2);
    for (const char character : CharactersOf(row)) {
      const QString shown = QString(QChar(character));
      auto* button =
          Named(new QPushButton(shown == "&" ? "&&" : shown, this), "wildcard_" + shown, FromText(row.meaning));
      button->setAccessibleName(shown + ": " + FromText(row.meaning));
      button->setAutoDefault(false);
      button->setFixedWidth(button->fontMetrics().horizontalAdvance("MMM"));
      connect(button, &QPushButton::clicked, this, [this, character] { emit CharacterChosen(character); });
      buttons->addWidget(button);
    }
    buttons->addStretch();
    grid->addLayout(buttons, line, 0);
    grid->addWidget(MakeLabel({}, FromText(row.typed), {}, this), line, 1);
    grid->addWidget(MakeLabel({}, FromText(row.meaning), {}, this), line, 2);
    ++line;
  }
  auto* close = Named(new QPushButton("Close", this), "cmdClose", "Close this window");
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  grid->addWidget(close, line, 0, 1, 3, Qt::AlignRight);
}

}  // namespace quorvane
