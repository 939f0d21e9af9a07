#include "lexicon/window/frm_new_lex.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"

namespace quorvane {

FrmNewLex::FrmNewLex(const std::string& directory, const std::string& currentLexicon, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmNewLex");
  setWindowTitle("Open new lexicon");
  auto* layout = new QVBoxLayout(this);
  auto* current = new QHBoxLayout;
  current->addWidget(MakeLabel("lblCurrLit", "Current lexicon:", {}, this));
  current->addWidget(MakeLabel("lblCurrLex", FromText(currentLexicon), "This is the current lexicon", this), 1);

  auto* choose = MakeLabel("lblChoose", "Choose from the following lexicon(s):", {}, this);
  layout->addWidget(choose);
  fbList_ = Named(new QListWidget(this), "fbList", "List of available lexicons");
  fbList_->setAccessibleName("Lexicons");
  fbList_->setMinimumWidth(380);
  choose->setBuddy(fbList_);
  for (const std::string& name : LexiconFilesIn(directory)) {
    if (ToText(FromText(name)) != name) {  // Neither the list nor the settings file can hold such a name.
      continue;
    }
    fbList_->addItem(FromText(name));
    if (name == currentLexicon) {
      fbList_->setCurrentRow(fbList_->count() - 1);
    }
  }
  fbList_->installEventFilter(this);
  layout->addWidget(fbList_, 1);
  layout->addLayout(current);
  auto* note = MakeLabel("lblNote",
                         "Note that all lexicons must reside in the same folder as the Quorvane program, and must "
                         "have extension \".lex\"",
                         {}, this);
  note->setWordWrap(true);
  layout->addWidget(note);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = Named(new QPushButton("OK", this), "cmdOK", "Change the lexicon to the selected one");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel", "Keep the current lexicon");
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  connect(ok, &QPushButton::clicked, this, &FrmNewLex::Choose);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(fbList_, &QListWidget::itemDoubleClicked, this, &FrmNewLex::Choose);
  fbList_->setFocus();
}

// The first key in a list without a selection selects, as in every list of the program.
bool FrmNewLex::eventFilter(QObject* watched, QEvent* event) {
  if (watched == fbList_ && event->type() == QEvent::KeyPress && fbList_->selectedItems().isEmpty()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool first = key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_Up;
    if (first || key == Qt::Key_End) {
      fbList_->setCurrentRow(first ? 0 : fbList_->count() - 1, QItemSelectionModel::ClearAndSelect);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void FrmNewLex::Choose() {
  const QListWidgetItem* item = fbList_->currentItem();
  if (item != nullptr && item->isSelected()) {
    chosen_ = ToText(item->text());
    accept();
  }
}

}  // namespace quorvane
