// The result list as rows of a view. A row's text is made when it is painted.
#pragma once

#include <QAbstractListModel>

#include "results/result_list.h"

namespace quorvane {

class WordListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // `results` stays the caller's; every change of it stands between BeginChange and EndChange.
  WordListModel(const ResultList& results, QObject* parent) : QAbstractListModel(parent), results_(results) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // The next row that begins with a text (MatchStartsWith and MatchWrap) is found without walking an ordered list.
  QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                        Qt::MatchFlags flags) const override;

  void BeginChange() { beginResetModel(); }
  void EndChange() { endResetModel(); }

 private:
  const ResultList& results_;
};

}  // namespace quorvane
