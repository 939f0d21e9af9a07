// The range of word lengths.
#pragma once

#include <QGroupBox>

#include "settings/settings_store.h"

class QComboBox;
class QLabel;
class QRadioButton;

namespace quorvane {

class LengthPanel : public QGroupBox {
  Q_OBJECT

 public:
  LengthPanel(SettingsStore& settings, QWidget* parent);

  bool AnyLength() const;
  int Min() const;
  int Max() const;
  // Fills both lists: lengths from 1, and from the minimum, up to the longest one offered.
  void SetRange(int min, int max);
  void SelectAnyLength();

  // The controls that follow the main text colour.
  QList<QWidget*> MainTextControls() const;

 signals:
  void Status(const std::string& text);

 private:
  void FillMaximum(int min, int max);
  void MinimumChosen();
  void MaximumChosen();
  void ShowRange();

  SettingsStore& settings_;
  int storedMax_ = 8;
  QRadioButton* rbAnyLen_ = nullptr;
  QRadioButton* rbSpecLen_ = nullptr;
  QComboBox* cbLenFr_ = nullptr;
  QComboBox* cbLenTo_ = nullptr;
  QLabel* lblToLit_ = nullptr;
};

}  // namespace quorvane
