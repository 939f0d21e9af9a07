#include "lexicon/window/frm_lex_name.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "base/file.h"
#include "base/window/labels.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/window/lexicon_name_box.h"

namespace quorvane {
namespace {

constexpr const char* kPrompt = "Enter new Lexicon name (don't include the .lex extension)";

}  // namespace

FrmLexName::FrmLexName(std::string directory, Door& door, QWidget* parent)
    : QDialog(parent), directory_(std::move(directory)), door_(door) {
  setObjectName("frmLexName");
  setWindowTitle("New Lexicon Name");
  auto* layout = new QVBoxLayout(this);
  QLabel* prompt = MakeLabel("lblName", kPrompt, {}, this);
  layout->addWidget(prompt);
  tbName_ = new LexiconNameBox("tbName", kPrompt, this);
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
  connect(ok, &QPushButton::clicked, this, &FrmLexName::AcceptName);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmLexName::AcceptName() {
  const std::string name = tbName_->Name();
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
