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
  void SetAutoSave(bool on);
  void AllowPrint(bool allowed);

 signals:
  void AutoSaveChosen(bool on);
  void UpperCaseChosen(bool on);
  void ClearRequested();
  void PrintRequested();

 private:
  QCheckBox* cbUpperCase_ = nullptr;
  QCheckBox* cbSaveToFile_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
};

}  // namespace quorvane
