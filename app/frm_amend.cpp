#include "app/frm_amend.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStorageInfo>
#include <QTreeView>

#include "base/file.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/settings_table.h"

namespace quorvane {
namespace {

constexpr const char* kInfo = "This is the directory where the saved word-list file will be written to.";

// The roots of the mounted file systems that hold files of the user's; "/" is always the first.
QStringList Drives() {
  QStringList roots{"/"};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const bool device = volume.device().startsWith("/dev/");
    if (volume.isReady() && device && QFileInfo(volume.rootPath()).isDir() && !roots.contains(volume.rootPath())) {
      roots.push_back(volume.rootPath());
    }
  }
  return roots;
}

QString NearestDirectory(QString path) {
  while (!QFileInfo(path).isDir() && path != "/") {
    path = QFileInfo(path).absolutePath();
  }
  return path;
}

}  // namespace

FrmAmend::FrmAmend(Services& services, std::vector<ProtectedFile> files, QWidget* parent)
    : QDialog(parent), services_(services), files_(std::move(files)) {
  setObjectName("frmAmend");
  setWindowTitle("Save File location change");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeLabel("lblInfo", kInfo, {}, this));
  auto* grid = new QGridLayout;
  MakeControls(grid);
  layout->addLayout(grid, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* apply = Named(new QPushButton("&Apply", this), "ApplyModify", "Store the name");
  auto* cancel = Named(new QPushButton("&Cancel", this), "CancelModify", "Keep the name as it was");
  apply->setDefault(true);
  buttons->addWidget(apply);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);

  const QFileInfo stored(
      FromText(ResolvePath(services_.programDirectory, SaveFilePath(services_.settings, services_.programDirectory))));
  tbNewFileName_->setText(stored.fileName());
  const QString directory = QDir::cleanPath(stored.absolutePath());
  ShowDirectory(directory);
  missing_ = QFileInfo(directory).isDir() ? QString() : directory;
  connect(drives_, &QComboBox::activated, this, [this] { ShowDirectory(drives_->currentText()); });
  connect(apply, &QPushButton::clicked, this, &FrmAmend::Apply);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  resize(480, 420);
}

void FrmAmend::MakeControls(QGridLayout* grid) {
  const auto addRow = [&](int row, const QString& text, QWidget* control) {
    QLabel* label = MakeLabel({}, text, {}, this);
    label->setBuddy(control);
    control->setAccessibleName(QString(text).remove(':'));
    grid->addWidget(label, row, 0, Qt::AlignTop);
    grid->addWidget(control, row, 1);
  };
  drives_ = Named(new QComboBox(this), "tbNewSaveFileDrive", "Root of the directory list");
  drives_->addItems(Drives());
  addRow(0, "Drive:", drives_);
  directories_ = Named(new QTreeView(this), "tbNewSaveFileDirectory", kInfo);
  model_ = new QFileSystemModel(this);
  model_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
  model_->setRootPath("/");
  directories_->setModel(model_);
  directories_->setHeaderHidden(true);
  // Directories are read and sorted as they are needed, which may move the selected one out of sight; once the user has
  // begun to look around nothing moves by itself.
  const auto keepInSight = [this] {
    if (!touched_) {
      directories_->scrollTo(directories_->currentIndex(), QAbstractItemView::PositionAtCenter);
    }
  };
  const auto touch = [this] { touched_ = true; };
  connect(model_, &QFileSystemModel::directoryLoaded, this, keepInSight);
  connect(model_, &QFileSystemModel::layoutChanged, this, keepInSight, Qt::QueuedConnection);
  connect(directories_, &QTreeView::pressed, this, touch);
  connect(directories_, &QTreeView::collapsed, this, touch);
  for (int column = 1; column < model_->columnCount(); ++column) {
    directories_->hideColumn(column);
  }
  addRow(1, "Save directory:", directories_);
  grid->setRowStretch(1, 1);
  tbNewFileName_ = Named(new QLineEdit(this), "tbNewFileName", "Name of the results file");
  addRow(2, "File Name:", tbNewFileName_);
  cbSaveInAppDir_ =
      Named(new QCheckBox("Save in Quorvane directory?", this), "cbSaveInAppDir", FromText(services_.programDirectory));
  grid->addWidget(cbSaveInAppDir_, 3, 1);
}

// Shows the drive that holds the directory, with the directory selected; the nearest one there is when it is gone.
void FrmAmend::ShowDirectory(const QString& directory) {
  const QString shown = NearestDirectory(directory);
  int drive = 0;
  for (int i = 1; i < drives_->count(); ++i) {
    const QString root = drives_->itemText(i);
    if ((shown == root || shown.startsWith(root + "/")) && root.size() > drives_->itemText(drive).size()) {
      drive = i;
    }
  }
  drives_->setCurrentIndex(drive);
  const QModelIndex index = model_->index(shown);
  directories_->setCurrentIndex(index);
  directories_->expand(index);
  directories_->scrollTo(index);
}

QString FrmAmend::Directory() const {
  const QModelIndex index = directories_->currentIndex();
  return index.isValid() ? model_->filePath(index) : drives_->currentText();
}

void FrmAmend::Refuse(const std::string& text) {
  services_.door.Show(this, text);
  tbNewFileName_->setFocus();
}

bool FrmAmend::MayReplace(const std::string& path) {
  if (const auto reason = WhyNotASaveFile(path, files_)) {
    Refuse(*reason);
    return false;
  }
  if (IsOwnSaveFile(path)) {
    return true;
  }
  Question question;
  question.text = FromText(path + " is not a word list of this program. Replace it?");
  question.cancel = true;
  return services_.door.Ask(this, question) == Answer::Ok;
}

void FrmAmend::Apply() {
  std::string name = ToText(tbNewFileName_->text());
  if (tbNewFileName_->text().trimmed().isEmpty()) {
    Refuse("Please enter a file name.");
    return;
  }
  if (HasDirectory(name)) {
    Refuse("'" + name + "' is no file name: choose the directory in the list above it.");
    return;
  }
  if (const auto reason = WhyNoFileName(name)) {
    Refuse(*reason);
    return;
  }
  if (name.find('.') == std::string::npos) {
    name += ".txt";
  }
  const bool inProgramDirectory = cbSaveInAppDir_->isChecked();
  const std::string directory = inProgramDirectory ? services_.programDirectory : ToText(Directory());
  const QFileInfo folder(FromText(directory));
  if (!folder.isDir() || !folder.isWritable()) {
    services_.door.Show(this,
                        "The directory " + directory + (folder.isDir() ? " can't be written to." : " does not exist."));
    return;
  }
  const std::string path = JoinPath(directory, name);
  // The list shows another directory in its place, which nobody has chosen yet.
  if (!missing_.isEmpty() && !inProgramDirectory && Directory() == NearestDirectory(missing_)) {
    services_.door.Show(this, "The directory " + ToText(missing_) +
                                  " does not exist. Choose another one, or Apply again to use " + directory + ".");
    missing_.clear();
    return;
  }
  if (!MayReplace(path)) {
    return;
  }
  SaveSetting(services_.settings, Setting::SaveFileName, path);
  services_.log.Write(event::kSaveNameUpdated,
                      "Updated save filename: " + path +
                          (inProgramDirectory ? " (saved in Quorvane directory, " + directory + ")" : ""));
  accept();
}

}  // namespace quorvane
