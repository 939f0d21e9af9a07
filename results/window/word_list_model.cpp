#include "results/window/word_list_model.h"

#include "base/window/qt_text.h"

namespace quorvane {

int WordListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(results_.EntryCount());
}

QVariant WordListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
    return {};
  }
  return FromBytes(results_.Entry(static_cast<size_t>(index.row())));
}

QModelIndexList WordListModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                     Qt::MatchFlags flags) const {
  if (role != Qt::DisplayRole || hits != 1 || flags != (Qt::MatchStartsWith | Qt::MatchWrap) || !start.isValid()) {
    return QAbstractListModel::match(start, role, value, hits, flags);
  }
  const auto found = results_.FindPrefix(ToBytes(value.toString()), static_cast<size_t>(start.row()));
  return found ? QModelIndexList{index(static_cast<int>(*found), 0)} : QModelIndexList{};
}

}  // namespace quorvane
