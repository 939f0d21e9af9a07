// One row of conditions beside the pattern. While it is closed it asks for nothing, and keeps its texts.
#pragma once

#include <QWidget>
#include <vector>

#include "search/control_state.h"
#include "search/search.h"
#include "search/window/clean_box.h"

class QLineEdit;

namespace quorvane {

class ConditionsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ConditionsPanel(QWidget* parent);

  // Says what the input check leaves of a pattern.
  void SetCheck(KeptText check) { check_ = std::move(check); }
  std::vector<Condition> Conditions() const;
  ConditionRow Row() const;
  // Shows the row, without a word of it.
  void Show(const ConditionRow& row);
  void FocusFirst();

 signals:
  void Changed();
  void SearchRequested();

 private:
  struct Box {
    ConditionKind kind;
    QLineEdit* box;
  };
  void Clean(const Box& box);

  KeptText check_;
  std::vector<Box> boxes_;
};

}  // namespace quorvane
