// Changes where the results file is written.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "app/services.h"
#include "results/save_target.h"

class QCheckBox;
class QComboBox;
class QFileSystemModel;
class QGridLayout;
class QLineEdit;
class QTreeView;

namespace quorvane {

class FrmAmend : public QDialog {
  Q_OBJECT

 public:
  // `files` are those that results never replace.
  FrmAmend(Services& services, std::vector<ProtectedFile> files, QWidget* parent);

 private:
  void MakeControls(QGridLayout* grid);
  void ShowDirectory(const QString& directory);
  QString Directory() const;
  void Apply();
  // Whether results may be saved there; says why not, and asks where another file would be lost.
  bool MayReplace(const std::string& path);
  void Refuse(const std::string& text);

  Services& services_;
  const std::vector<ProtectedFile> files_;
  QComboBox* drives_ = nullptr;
  QTreeView* directories_ = nullptr;
  QFileSystemModel* model_ = nullptr;
  QLineEdit* tbNewFileName_ = nullptr;
  QCheckBox* cbSaveInAppDir_ = nullptr;
  bool touched_ = false;  // The user has begun to look around in the list of directories.
  QString missing_;       // The stored directory, when it is not there and the user was not told.
};

}  // namespace quorvane
