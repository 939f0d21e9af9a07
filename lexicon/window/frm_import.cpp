#include "lexicon/window/frm_import.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <new>

#include "base/file.h"
#include "base/text.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/window/lexicon_name_box.h"
#include "lexicon/word_list_reader.h"

namespace quorvane {
namespace {

constexpr int kMostColumns = 1000;
constexpr int kReportLines = 5;
constexpr int kTableWidth = 560;
constexpr int kTableHeight = 190;
constexpr int kWidestCell = 240;

// No text may be dropped into a box of this window.
template <class Box>
Box* Undroppable(Box* box) {
  box->setAcceptDrops(false);
  return box;
}

}  // namespace

FrmImport::FrmImport(Door& door, std::string directory, Refusal refusal, const std::string& file, QWidget* parent)
    : QDialog(parent), door_(door), directory_(std::move(directory)), refusal_(std::move(refusal)) {
  setObjectName("frmImport");
  setWindowTitle("Import a word list");
  auto* layout = new QVBoxLayout(this);
  AddFile(layout);
  auto* form = new QFormLayout;
  layout->addLayout(form);
  AddOptions(form);
  txtReport_ = Undroppable(Named(new QPlainTextEdit(this), "txtReport", "What becomes of the lines of the file"));
  txtReport_->setAccessibleName("Report");
  txtReport_->setReadOnly(true);
  txtReport_->setTabChangesFocus(true);
  txtReport_->setFixedHeight((kReportLines + 1) * txtReport_->fontMetrics().lineSpacing());
  layout->addWidget(txtReport_);
  AddTarget(layout);
  AddButtons(layout);
  tbFile_->setText(FromText(file));
  ReadHead();
  if (path_.empty()) {
    tbFile_->setFocus();
  } else {
    sbColumn_->setFocus();
  }
}

void FrmImport::AddFile(QVBoxLayout* layout) {
  auto* row = new QHBoxLayout;
  QLabel* caption = MakeLabel("lblImportFile", "&File:", {}, this);
  tbFile_ = Undroppable(Named(new QLineEdit(this), "tbImportFile", "The word list that is read"));
  tbFile_->setAccessibleName("File");
  tbFile_->installEventFilter(this);
  caption->setBuddy(tbFile_);
  auto* browse = Named(new QPushButton("&Browse ...", this), "cmdBrowse", "Choose the file");
  browse->setAutoDefault(false);
  row->addWidget(caption);
  row->addWidget(tbFile_, 1);
  row->addWidget(browse);
  layout->addLayout(row);
  tblLines_ =
      Named(new QTableWidget(this), "tblLines", "The first lines of the file; the chosen column holds the words");
  tblLines_->setAccessibleName("First lines");
  tblLines_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tblLines_->setSelectionBehavior(QAbstractItemView::SelectColumns);
  tblLines_->setSelectionMode(QAbstractItemView::SingleSelection);
  tblLines_->setTabKeyNavigation(false);
  tblLines_->verticalHeader()->hide();
  tblLines_->verticalHeader()->setDefaultSectionSize(tblLines_->fontMetrics().height() + 4);
  tblLines_->horizontalHeader()->setMaximumSectionSize(kWidestCell);
  tblLines_->setMinimumSize(kTableWidth, kTableHeight);
  layout->addWidget(tblLines_, 1);
  connect(tbFile_, &QLineEdit::editingFinished, this, &FrmImport::ReadHead);
  connect(browse, &QPushButton::clicked, this, &FrmImport::Browse);
  connect(tblLines_, &QTableWidget::currentCellChanged, this, [this](int, int column) {
    if (column >= 0) {
      sbColumn_->setValue(column + 1);
    }
  });
}

void FrmImport::AddOptions(QFormLayout* form) {
  sbColumn_ = Named(new QSpinBox(this), "sbColumn", "Which cell of a line holds the word, counted from 1");
  sbColumn_->setAccessibleName("Column");
  sbColumn_->setRange(1, kMostColumns);
  form->addRow("&Column:", sbColumn_);
  cbSeparator_ = Named(new QComboBox(this), "cbSeparator", "What stands between the cells of a line");
  cbSeparator_->setAccessibleName("Separator");
  for (const SeparatorRow& row : Separators()) {
    if (row.separator != Separator::Any) {
      cbSeparator_->addItem(FromText(row.meaning), static_cast<int>(row.separator));
    }
  }
  form->addRow("&Separator:", cbSeparator_);
  cbHeading_ = Named(new QCheckBox("First line is a &heading", this), "cbHeading", "The first line holds no word");
  form->addRow("", cbHeading_);
  cbPhrases_ = Named(new QComboBox(this), "cbPhrases", "What becomes of cells of several words, such as ice cream");
  cbPhrases_->setAccessibleName("Phrases");
  for (const PhrasesRow& row : PhrasesRows()) {
    cbPhrases_->addItem(FromText(row.meaning), static_cast<int>(row.phrases));
  }
  form->addRow("&Phrases:", cbPhrases_);
  connect(sbColumn_, &QSpinBox::valueChanged, this, &FrmImport::ShowPreview);
  connect(cbSeparator_, &QComboBox::currentIndexChanged, this, &FrmImport::ShowPreview);
  connect(cbHeading_, &QCheckBox::toggled, this, &FrmImport::ShowPreview);
  connect(cbPhrases_, &QComboBox::currentIndexChanged, this, &FrmImport::ShowPreview);
}

void FrmImport::AddTarget(QVBoxLayout* layout) {
  auto* row = new QHBoxLayout;
  QLabel* caption = MakeLabel("lblSaveAs", "Save &as:", {}, this);
  tbSaveAs_ = Undroppable(new LexiconNameBox("tbSaveAs", "The name of the new lexicon, without the extension", this));
  caption->setBuddy(tbSaveAs_);
  cbOpenNow_ = Named(new QCheckBox("&Open it now", this), "cbOpenNow", "Search in the new lexicon from now on");
  cbOpenNow_->setChecked(true);
  row->addWidget(caption);
  row->addWidget(tbSaveAs_, 1);
  row->addWidget(MakeLabel("lblExtension", FromText(kLexiconExtension), {}, this));
  row->addSpacing(16);
  row->addWidget(cbOpenNow_);
  layout->addLayout(row);
}

void FrmImport::AddButtons(QVBoxLayout* layout) {
  auto* row = new QHBoxLayout;
  pbImport_ = Described(new QProgressBar(this), "pbImport", "Progress of the import");
  pbImport_->setAccessibleName("Progress");
  pbImport_->setTextVisible(false);
  QSizePolicy keepsItsPlace = pbImport_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  pbImport_->setSizePolicy(keepsItsPlace);
  pbImport_->hide();
  cmdOK_ = Named(new QPushButton("&Make lexicon", this), "cmdOK", "Make a lexicon of all lines");
  cmdOK_->setDefault(true);
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel", "Make no lexicon");
  row->addWidget(pbImport_, 1);
  row->addWidget(cmdOK_);
  row->addWidget(cancel);
  layout->addLayout(row);
  connect(cmdOK_, &QPushButton::clicked, this, &FrmImport::Make);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool FrmImport::OpenNow() const {
  return cbOpenNow_->isChecked();
}

// Enter in the file's box shows the file; the button is for the eyes that have seen it.
bool FrmImport::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tbFile_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      ReadHead();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void FrmImport::Browse() {
  const QString chosen = door_.AskOpenPath(this, "Import a word list", tbFile_->text(), "All files (*)");
  if (!chosen.isEmpty()) {
    tbFile_->setText(chosen);
    ReadHead();
  }
}

void FrmImport::ReadHead() {
  const std::string name = ToText(tbFile_->text().trimmed());
  const std::string path = name.empty() ? name : ResolvePath(directory_, name);
  if (path == path_ && !path.empty() && !head_.empty()) {
    return;
  }
  const Hourglass hourglass;
  path_ = path;
  head_.clear();
  cmdOK_->setEnabled(false);
  if (path.empty()) {
    tblLines_->setRowCount(0);
    txtReport_->setPlainText("Choose a file: plain text, one word a line, or a table whose lines hold a word each.");
    return;
  }
  WordListRead read = ReadWordListHead(path);
  if (read.error) {
    tblLines_->setRowCount(0);
    txtReport_->setPlainText("Can't read " + FromText(read.error->Text()));
    return;
  }
  head_ = std::move(read.bytes);
  whole_ = QFileInfo(FromText(path)).size() <= static_cast<qint64>(head_.size());
  cmdOK_->setEnabled(true);
  if (tbSaveAs_->text().isEmpty() || !tbSaveAs_->isModified()) {
    tbSaveAs_->setText(QFileInfo(FromText(path)).completeBaseName());
  }
  ShowPreview();
}

MakerOptions FrmImport::Options() const {
  return {static_cast<Separator>(cbSeparator_->currentData().toInt()), sbColumn_->value(), cbHeading_->isChecked(),
          static_cast<Phrases>(cbPhrases_->currentData().toInt())};
}

void FrmImport::ShowPreview() {
  if (!cmdOK_->isEnabled()) {
    return;
  }
  const Hourglass hourglass;
  const MakerPreview preview = Preview(head_, Options());
  ShowLines(preview);
  ShowSeparators(preview.separator);
  const bool all = whole_ && preview.report.Lines() < kPreviewedLines;
  txtReport_->setPlainText((all ? "" : "Of the first ") + FromText(TextOf(preview.report)));
}

void FrmImport::ShowLines(const MakerPreview& preview) {
  const QSignalBlocker quiet(tblLines_);
  const auto heading = static_cast<size_t>(cbHeading_->isChecked() && !preview.lines.empty());
  size_t columns = 0;
  for (const auto& line : preview.lines) {
    columns = std::max(columns, line.size());
  }
  tblLines_->clear();
  tblLines_->setRowCount(static_cast<int>(preview.lines.size() - heading));
  tblLines_->setColumnCount(static_cast<int>(columns));
  for (size_t row = 0; row < preview.lines.size(); ++row) {
    const auto& cells = preview.lines[row];
    for (size_t column = 0; column < cells.size(); ++column) {
      QString text = FromText(QuotedText(cells[column]));
      if (row < heading) {
        text = QString::number(column + 1) + "  " + text;
      }
      auto* item = new QTableWidgetItem(text);
      if (row < heading) {
        tblLines_->setHorizontalHeaderItem(static_cast<int>(column), item);
      } else {
        tblLines_->setItem(static_cast<int>(row - heading), static_cast<int>(column), item);
      }
    }
  }
  tblLines_->resizeColumnsToContents();
  MarkColumn();
}

void FrmImport::MarkColumn() {
  const int column = sbColumn_->value() - 1;
  if (column < tblLines_->columnCount() && tblLines_->rowCount() > 0) {
    tblLines_->setCurrentCell(0, column);
  } else {
    tblLines_->setCurrentCell(-1, -1);
  }
}

// The entry that is found by itself says what was found.
void FrmImport::ShowSeparators(Separator found) {
  const int entry = cbSeparator_->findData(static_cast<int>(Separator::Found));
  QString text = FromText(RowOf(Separator::Found).meaning);
  if (cbSeparator_->currentIndex() == entry) {
    text += ": " + FromText(RowOf(found).meaning);
  }
  cbSeparator_->setItemText(entry, text);
}

bool FrmImport::MayWrite(const std::string& path) {
  if (const auto reason = refusal_(path)) {
    door_.Show(this, *reason);
    tbSaveAs_->setFocus();
    return false;
  }
  if (!FileExists(path)) {
    return true;
  }
  Question question;
  question.text = FromText(path + " is there already. Replace it?");
  question.cancel = true;
  return door_.Ask(this, question) == Answer::Ok;
}

std::optional<MadeLexicon> FrmImport::MakeOfAll() {
  const WordListRead read = ReadWordList(path_, Pipes::Refused);
  if (read.error) {
    door_.Show(this, "No lexicon was made. Can't read " + read.error->Text());
    return std::nullopt;
  }
  LexiconMaker maker(Options());
  maker.AddList(read.bytes, std::numeric_limits<int64_t>::max(), [this](int percent) {
    pbImport_->setValue(percent);
    pbImport_->repaint();
  });
  MadeLexicon made = maker.Finish();
  txtReport_->setPlainText(FromText(TextOf(made.report)));
  if (!made.problem.empty()) {
    door_.Show(this, "No lexicon was made of " + path_ + ": " + made.problem + ".");
    return std::nullopt;
  }
  return made;
}

void FrmImport::Make() {
  const std::string name = tbSaveAs_->Name() + std::string(kLexiconExtension);
  const std::string path = JoinPath(directory_, name);
  if (tbSaveAs_->Name().empty()) {
    door_.Show(this, "Please enter a name for the new lexicon.");
    tbSaveAs_->setFocus();
    return;
  }
  if (!MayWrite(path)) {
    return;
  }
  const Hourglass hourglass;
  pbImport_->setValue(0);
  pbImport_->show();
  try {
    if (const auto made = MakeOfAll()) {
      if (const auto error = WriteLexiconFile(path, *made)) {
        door_.Show(this, "The lexicon could not be written to " + error->Text());
      } else {
        made_ = name;
        door_.Show(this, "The lexicon " + name + " has been made.\r\n\r\n" + TextOf(made->report));
        accept();
      }
    }
  } catch (const std::bad_alloc&) {
    door_.Show(this, "There is not enough memory for this: Import of " + path_);
  }
  pbImport_->hide();
}

}  // namespace quorvane
