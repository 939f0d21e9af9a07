#include "lexicon/window/frm_lex_problem.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "base/text.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lexicon/load_report.h"

namespace quorvane {
namespace {

constexpr const char* kContactPage = "https://example.org/quorvane/contact";
constexpr int kWidth = 520;
constexpr int kWordWidth = 380;  // What the line of the dialog leaves.

}  // namespace

FrmLexProblem::FrmLexProblem(const std::string& path, const LoadResult& result, QWidget* parent) : QDialog(parent) {
  setObjectName("frmLexProblem");
  setWindowTitle(LexiconProblemTexts::kCaption);
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  const auto addText = [&](const QString& name, const char* text) {
    QLabel* label = MakeLabel(name, FromText(text), {}, this);
    label->setWordWrap(true);
    label->setMinimumWidth(kWidth);
    layout->addWidget(label);
  };
  addText("lblPoint", LexiconProblemTexts::kPoint);
  auto* where = new QHBoxLayout;
  where->setSpacing(4);
  where->addSpacing(24);
  where->addWidget(MakeLabel("lblWordNumLit", LexiconProblemTexts::kWordNumber, {}, this));
  where->addWidget(MakeLabel("lblWordNum", QString::number(result.count), "Number of the word", this));
  where->addSpacing(16);
  const QString whole = FromBytes(QuotedText(result.lastWord));
  QLabel* word = MakeLabel("lblWord", whole, "The word read last", this);
  QFont bold = word->font();
  bold.setBold(true);
  word->setFont(bold);
  word->setText(QFontMetrics(bold).elidedText(whole, Qt::ElideRight, kWordWidth));
  if (word->text() != whole) {
    word->setToolTip(whole);
  }
  where->addWidget(word, 1);
  layout->addLayout(where);
  addText("lblFile",
          ("In the file " + path + (CauseOf(result).empty() ? "" : ": ") + std::string(CauseOf(result))).c_str());
  addText("lblIllegal", LexiconProblemTexts::kIllegalCharacter);
  addText("lblCheckFile", LexiconProblemTexts::kCheckFile);
  addText("lblPersist", LexiconProblemTexts::kPersist);
  auto* contact = new ClickLabel("lblContact", LexiconProblemTexts::kContact, "Opens a page in the browser", this);
  QPalette link = contact->palette();
  link.setColor(QPalette::WindowText, link.color(QPalette::Link));
  contact->setPalette(link);
  connect(contact, &ClickLabel::Clicked, this, [] { QDesktopServices::openUrl(QUrl(kContactPage)); });
  layout->addWidget(contact);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* exit = Named(new QPushButton("Exit", this), "cmdExit", "Close this window");
  connect(exit, &QPushButton::clicked, this, &QDialog::accept);
  buttons->addWidget(exit);
  layout->addLayout(buttons);
  exit->setFocus();
}

}  // namespace quorvane
