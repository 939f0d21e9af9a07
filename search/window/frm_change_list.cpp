#include "search/window/frm_change_list.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "base/text.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"

namespace quorvane {
namespace {

struct DialogTexts {
  const char* name;
  const char* caption;
  const char* prompt;
};

constexpr std::array kTexts = {
    DialogTexts{"frmChangeSelectChars", "Include characters", "Characters that # stands for (any one of them):"},
    DialogTexts{"frmChangeExcludeChars", "Exclude characters", "Characters that ! does not stand for:"},
    DialogTexts{"frmChangeScrabbleChars", "Scrabble characters",
                "Tiles that = stands for, each used once (? and - are blank tiles):"},
};

}  // namespace

std::string StoredList(const SettingsStore& settings, ListKind kind) {
  return settings.Get(kApplicationName, "Selection", FactsOf(kind).settingsKey, "");
}

void StoreList(ListKind kind, const std::string& list, SettingsStore& settings, EventLog& log) {
  const ListFacts& facts = FactsOf(kind);
  settings.Save(kApplicationName, "Selection", facts.settingsKey, list);
  log.Write(facts.logCode, std::string(facts.logText) + list + "]");
}

CharacterLists StoredLists(const SettingsStore& settings) {
  CharacterLists lists;
  for (const ListKind kind : kListKinds) {
    lists.Of(kind) = StoredList(settings, kind);
  }
  return lists;
}

FrmChangeList::FrmChangeList(ListKind kind, SettingsStore& settings, EventLog& log, Door& door, QWidget* parent)
    : QDialog(parent), kind_(kind), settings_(settings), log_(log), door_(door) {
  const DialogTexts& texts = kTexts[static_cast<size_t>(kind)];
  setObjectName(texts.name);
  setWindowTitle(texts.caption);
  auto* layout = new QVBoxLayout(this);
  QLabel* prompt = MakeLabel("lblPrompt", texts.prompt, {}, this);
  layout->addWidget(prompt);
  tbChangeInput_ =
      Named(new QLineEdit(FromBytes(FoldText(StoredList(settings, kind))), this), "tbChangeInput", texts.prompt);
  tbChangeInput_->setAccessibleName(texts.caption);
  tbChangeInput_->setMinimumWidth(320);
  tbChangeInput_->setCursorPosition(static_cast<int>(tbChangeInput_->text().size()));
  prompt->setBuddy(tbChangeInput_);
  layout->addWidget(tbChangeInput_);
  if (kind == ListKind::Scrabble) {
    lblNoChars_ = MakeLabel("lblNoChars", "", "Number of tiles", this);
    layout->addWidget(lblNoChars_);
    ShowCount();
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = Named(new QPushButton("OK", this), "cmdOK", "Store the list");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel", "Keep the list as it was");
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  connect(tbChangeInput_, &QLineEdit::textChanged, this, &FrmChangeList::Clean);
  connect(ok, &QPushButton::clicked, this, &FrmChangeList::Store);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  tbChangeInput_->setFocus();
  // The first focus selects the whole text; the caret belongs at its end.
  QTimer::singleShot(0, tbChangeInput_, [this] { tbChangeInput_->end(false); });
}

void FrmChangeList::Clean() {
  const QString typed = tbChangeInput_->text();
  const QString clean = FromBytes(CleanList(kind_, ToBytes(typed)));
  if (clean != typed) {
    tbChangeInput_->setText(clean);  // Comes back here with a clean text; the caret is at its end.
    return;
  }
  ShowCount();
}

void FrmChangeList::ShowCount() {
  if (lblNoChars_ != nullptr) {
    const auto count = tbChangeInput_->text().size();
    lblNoChars_->setText(QString::number(count) + " character" + FromText(PluralS(count)));
  }
}

void FrmChangeList::Store() {
  const std::string list = ToBytes(tbChangeInput_->text());
  if (list.empty() && !FactsOf(kind_).mayBeEmpty) {
    door_.Show(this, kEmptyListRefusal);
    tbChangeInput_->setFocus();
    return;
  }
  StoreList(kind_, list, settings_, log_);
  accept();
}

}  // namespace quorvane
