#include "results/window/frm_export.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/file.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/settings_table.h"

namespace quorvane {
namespace {

constexpr size_t kPreviewLines = 8;

}  // namespace

FrmExport::FrmExport(SettingsStore& settings, Door& door, const WordSequence& words, std::string directory,
                     Refusal refusal, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      door_(door),
      words_(words),
      directory_(std::move(directory)),
      refusal_(std::move(refusal)) {
  setObjectName("frmExport");
  setWindowTitle("Export the words");
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  layout->addLayout(form);
  cbFormat_ = Named(new QComboBox(this), "cbFormat", "How the words are written");
  cbFormat_->setAccessibleName("Form");
  for (const ExportFormatRow& row : ExportFormats()) {
    cbFormat_->addItem(FromText(row.caption));
  }
  form->addRow("F&orm:", cbFormat_);
  lblPreview_ = MakeLabel("lblPreview", "", "The first lines of the file", this);
  lblPreview_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lblPreview_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  lblPreview_->setAlignment(Qt::AlignTop);
  lblPreview_->setMargin(4);
  lblPreview_->setMinimumSize(420, static_cast<int>(kPreviewLines + 1) * lblPreview_->fontMetrics().height() + 10);
  form->addRow("First lines:", lblPreview_);
  tbFile_ = Named(new QLineEdit(FromText(GetSetting(settings, Setting::ExportFile)), this), "tbExportFile",
                  "The file that is written");
  tbFile_->setAccessibleName("File");
  auto* browse = Named(new QPushButton("&Browse ...", this), "cmdBrowse", "Choose the file");
  browse->setAutoDefault(false);
  auto* file = new QHBoxLayout;
  file->addWidget(tbFile_, 1);
  file->addWidget(browse);
  auto* caption = new QLabel("&File:", this);
  caption->setBuddy(tbFile_);
  form->addRow(caption, file);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = Named(new QPushButton("&Export", this), "cmdOK", "Write the file");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel", "Write nothing");
  ok->setDefault(true);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  if (tbFile_->text().isEmpty()) {
    tbFile_->setText(FromText(JoinPath(directory_, "words" + std::string(RowOf(Format()).extension))));
  }
  // The form that the remembered name speaks of.
  for (const ExportFormatRow& row : ExportFormats()) {
    if (tbFile_->text().endsWith(FromText(row.extension)) && RowOf(Format()).extension != row.extension) {
      cbFormat_->setCurrentIndex(static_cast<int>(row.format));
    }
  }
  ShowPreview();
  connect(cbFormat_, &QComboBox::activated, this, &FrmExport::FormatChosen);
  connect(browse, &QPushButton::clicked, this, &FrmExport::Browse);
  connect(ok, &QPushButton::clicked, this, &FrmExport::Write);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

ExportFormat FrmExport::Format() const {
  return static_cast<ExportFormat>(cbFormat_->currentIndex());
}

void FrmExport::ShowPreview() {
  lblPreview_->setText(FromText(Preview(words_, Format(), kPreviewLines)).replace("\r\n", "\n"));
}

// The name follows the form, where it has the extension of one.
void FrmExport::FormatChosen() {
  const QString name = tbFile_->text();
  for (const ExportFormatRow& row : ExportFormats()) {
    const QString extension = FromText(row.extension);
    if (name.endsWith(extension)) {
      tbFile_->setText(name.left(name.size() - extension.size()) + FromText(RowOf(Format()).extension));
      break;
    }
  }
  ShowPreview();
}

void FrmExport::Browse() {
  const QString chosen = door_.AskSavePath(this, "Export the words", tbFile_->text(), "All files (*)");
  if (!chosen.isEmpty()) {
    tbFile_->setText(chosen);
  }
}

void FrmExport::Write() {
  const std::string name = ToText(tbFile_->text().trimmed());
  if (name.empty()) {
    door_.Show(this, "Please enter a file name.");
    tbFile_->setFocus();
    return;
  }
  const std::string path = ResolvePath(directory_, name);
  const auto noName = WhyNoFileName(name);
  if (const auto reason = noName ? noName : refusal_(path)) {
    door_.Show(this, *reason);
    tbFile_->setFocus();
    return;
  }
  if (QFileInfo::exists(FromText(path))) {
    Question question;
    question.text = FromText(path + " is there already. Replace it?");
    question.cancel = true;
    if (door_.Ask(this, question) != Answer::Ok) {
      return;
    }
  }
  const Hourglass hourglass;
  if (const auto error = ExportToFile(path, words_, Format())) {
    door_.Show(this, "The words could not be exported to " + error->Text());
    return;
  }
  SaveSetting(settings_, Setting::ExportFile, path);
  written_ = path;
  accept();
}

}  // namespace quorvane
