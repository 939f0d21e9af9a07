// The searches that are kept, as a window beside the work.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "search/history.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;

namespace quorvane {

class ElidedLabel;
class SearchesModel;

class FrmSearches : public QDialog {
  Q_OBJECT

 public:
  explicit FrmSearches(QWidget* parent);

  // Newest first. The same search stays chosen.
  void ShowEntries(const std::vector<HistoryEntry>& entries);
  // A note under the table; empty for none.
  void Say(const std::string& text);

 signals:
  void SearchRequested(const quorvane::HistoryEntry& entry);
  // "" takes the name away.
  void NameRequested(const quorvane::HistoryEntry& entry, const std::string& name);
  void ForgetRequested(const quorvane::HistoryEntry& entry);
  void ForgetAllRequested();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeTable();
  QPushButton* MakeButton(const char* name, const char* caption, const char* toolTip);
  std::optional<HistoryEntry> Chosen() const;
  void ChooseRow(int row);
  void ChosenChanged();
  void SearchChosen();
  void NameChosen();
  void ForgetChosen();

  SearchesModel* model_ = nullptr;
  QSortFilterProxyModel* shown_ = nullptr;
  QLineEdit* tbFilter_ = nullptr;
  QTreeView* lvSearches_ = nullptr;
  ElidedLabel* lblSearched_ = nullptr;
  QLabel* lblNote_ = nullptr;
  QPushButton* search_ = nullptr;
  QPushButton* name_ = nullptr;
  QPushButton* forget_ = nullptr;
  QPushButton* forgetAll_ = nullptr;
};

}  // namespace quorvane
