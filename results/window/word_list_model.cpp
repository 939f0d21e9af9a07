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

}  // namespace quorvane
