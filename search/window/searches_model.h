// The searches that are kept, as a table, newest first.
#pragma once

#include <QAbstractTableModel>
#include <string>
#include <vector>

#include "search/history.h"

namespace quorvane {

class SearchesModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kName, kReading, kWords, kWhen, kColumns };
  // What a column is sorted by, and what the filter looks at: all that is said of the search.
  static constexpr int kSortRole = Qt::UserRole;
  static constexpr int kFilterRole = Qt::UserRole + 1;

  using QAbstractTableModel::QAbstractTableModel;

  void Show(const std::vector<HistoryEntry>& entries);
  const HistoryEntry& Entry(int row) const { return rows_[static_cast<size_t>(row)].entry; }
  // The row of the same search in the same lexicon; -1 when there is none.
  int RowOf(const HistoryEntry& entry) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  // A name that was typed: tells of it, and shows it once it comes back by Show.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  void NameTyped(const quorvane::HistoryEntry& entry, const std::string& name);

 private:
  struct Row {
    HistoryEntry entry;
    QString reading;
    qint64 seconds = 0;
    QString when;
  };
  QString Text(const Row& row, int column) const;

  std::vector<Row> rows_;
};

// "c?t in words.lex": what was typed, and where.
QString SearchedText(const HistoryEntry& entry);

}  // namespace quorvane
