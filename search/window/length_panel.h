// The range of word lengths.
#pragma once

#include <QGroupBox>

#include "search/search.h"
#include "settings/settings_store.h"

class QComboBox;
class QRadioButton;

namespace quorvane {

class LengthPanel : public QGroupBox {
  Q_OBJECT

 public:
  LengthPanel(SettingsStore& settings, QWidget* parent);

  LengthRange Range() const;
  // Fills both lists: lengths from 1, and from the minimum, up to the longest one offered.
  void SetRange(int min, int max);
  void SelectAnyLength();
  // Shows both, without a word of it; nothing is stored.
  void Show(const LengthRange& range);

 signals:
  void Status(const std::string& text);
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Min() const;
  int Max() const;
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
};

}  // namespace quorvane
