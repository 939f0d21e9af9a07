// Changes where the results file is written.
#pragma once

#include <QDialog>

#include "app/services.h"

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
  FrmAmend(Services& services, QWidget* parent);

 private:
  void MakeControls(QGridLayout* grid);
  void ShowDirectory(const QString& directory);
  QString Directory() const;
  void Apply();

  Services& services_;
  QComboBox* drives_ = nullptr;
  QTreeView* directories_ = nullptr;
  QFileSystemModel* model_ = nullptr;
  QLineEdit* tbNewFileName_ = nullptr;
  QCheckBox* cbSaveInAppDir_ = nullptr;
  bool touched_ = false;  // The user has begun to look around in the list of directories.
  QString missing_;       // The stored directory, when it is not there and the user was not told.
};

}  // namespace quorvane
