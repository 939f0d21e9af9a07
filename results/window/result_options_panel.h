// What is done with the results: letter case, saving, clearing, printing.
#pragma once

#include <QWidget>

class QCheckBox;
class QPushButton;

namespace quorvane {

class ResultOptionsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ResultOptionsPanel(QWidget* parent);

  bool UpperCase() const;
  bool AutoSave() const;
  void SetAutoSave(bool on);
  QPushButton* PrintButton() const { return cmdPrint_; }
  QList<QWidget*> MainTextControls() const;

 signals:
  void AutoSaveChosen(bool on);
  void ClearRequested();
  void PrintRequested();

 private:
  QCheckBox* cbUpperCase_ = nullptr;
  QCheckBox* cbSaveToFile_ = nullptr;
  QPushButton* cmdClear_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
};

}  // namespace quorvane
