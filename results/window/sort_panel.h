// The order of the results.
#pragma once

#include <QGroupBox>
#include <map>

#include "results/result_list.h"

class QRadioButton;

namespace quorvane {

class SortPanel : public QGroupBox {
  Q_OBJECT

 public:
  explicit SortPanel(QWidget* parent);

  SortOrder Order() const;
  void Select(SortOrder order);
  void EnableLengthOrders();

 signals:
  void SortRequested(quorvane::SortOrder order);

 private:
  std::map<SortOrder, QRadioButton*> buttons_;
};

}  // namespace quorvane
