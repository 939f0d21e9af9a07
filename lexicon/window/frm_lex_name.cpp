#include "lexicon/window/frm_lex_name.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "base/file.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"

namespace quorvane {
namespace {

constexpr const char* kPrompt = "Enter new Lexicon name (don't include the .lex extension)";
constexpr int kMaxName = 200;

}  // namespace

FrmLexName::FrmLexName(std::string directory, Door& door, QWidget* parent)
    : QDialog(parent), directory_(std::move(directory)), door_(door) {
  setObjectName("frmLexName");
  setWindowTitle("New Lexicon Name");
  auto* layout = new QVBoxLayout(this);
  QLabel* prompt = MakeLabel("lblName", kPrompt, {}, this);
  layout->addWidget(prompt);
  tbName_ = Named(new QLineEdit(this), "tbName", kPrompt);
  tbName_->setMaxLength(kMaxName);
  tbName_->setAccessibleName("Lexicon name");
  prompt->setBuddy(tbName_);
  layout->addWidget(tbName_);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = Named(new QPushButton("OK", this), "cmdOK");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel");
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  connect(tbName_, &QLineEdit::textChanged, this, &FrmLexName::Clean);
  connect(ok, &QPushButton::clicked, this, &FrmLexName::AcceptName);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmLexName::Clean() {
  const QString typed = tbName_->text();
  const QString clean = FromBytes(CleanLexiconName(ToBytes(typed)));
  if (clean != typed) {
    const int caret = tbName_->cursorPosition();
    const auto kept = CleanLexiconName(ToBytes(typed.left(caret))).size();
    tbName_->setText(clean);
    tbName_->setCursorPosition(static_cast<int>(kept));
  }
}

void FrmLexName::AcceptName() {
  const std::string name = ToBytes(tbName_->text());
  const std::string path = JoinPath(directory_, name + std::string(kLexiconExtension));
  std::error_code error;
  if (!name.empty() && std::filesystem::exists(path, error)) {
    door_.Show(this, "Lexicon file '" + name + "' already exists.  Choose another name.");
    tbName_->clear();
    tbName_->setFocus();
    return;
  }
  name_ = name;
  accept();
}

}  // namespace quorvane
