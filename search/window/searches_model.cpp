#include "search/window/searches_model.h"

#include <QDateTime>
#include <array>

#include "base/text.h"
#include "base/window/qt_text.h"
#include "search/reading.h"

namespace quorvane {
namespace {

constexpr std::array kHeadings = {"Name", "What was searched", "Words", "When"};
static_assert(kHeadings.size() == SearchesModel::kColumns);

constexpr qsizetype kMostShown = 1000;  // Characters of a text in a cell.

}  // namespace

QString SearchedText(const HistoryEntry& entry) {
  return FromBytes(entry.search.text) + " in " + FromText(entry.lexicon);
}

void SearchesModel::Show(const std::vector<HistoryEntry>& entries) {
  beginResetModel();
  rows_.clear();
  for (const HistoryEntry& entry : entries) {
    Row row{entry, FromBytes(Reading(entry.search)), 0, FromText(entry.time)};
    if (row.reading.isEmpty()) {
      row.reading = FromBytes(entry.search.text);
    }
    if (const QDateTime time = QDateTime::fromString(row.when, Qt::ISODate); time.isValid()) {
      row.seconds = time.toSecsSinceEpoch();
      row.when = time.toLocalTime().toString("yyyy-MM-dd hh:mm");
    }
    rows_.push_back(std::move(row));
  }
  endResetModel();
}

int SearchesModel::RowOf(const HistoryEntry& entry) const {
  const std::string key = SearchKey(entry.search);
  for (size_t i = 0; i < rows_.size(); ++i) {
    const HistoryEntry& other = rows_[i].entry;
    if (other.lexicon == entry.lexicon && other.search.text == entry.search.text && SearchKey(other.search) == key) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

int SearchesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SearchesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString SearchesModel::Text(const Row& row, int column) const {
  switch (column) {
    case kName:
      return FromText(row.entry.name);
    case kReading:
      return row.reading;
    case kWords:
      return FromText(FormatThousands(row.entry.count));
    default:
      return row.when;
  }
}

QVariant SearchesModel::data(const QModelIndex& index, int role) const {
  const Row& row = rows_[static_cast<size_t>(index.row())];
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return Text(row, column).left(kMostShown);
    case Qt::EditRole:
      return Text(row, column);
    case Qt::ToolTipRole:
      return column == kReading ? QVariant((row.reading + "\n" + SearchedText(row.entry)).left(kMostShown))
                                : QVariant();
    case Qt::TextAlignmentRole:
      return column == kWords ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case kSortRole:
      return column == kWords  ? QVariant(static_cast<qlonglong>(row.entry.count))
             : column == kWhen ? QVariant(static_cast<qlonglong>(row.seconds))
                               : QVariant(Text(row, column).toCaseFolded());
    case kFilterRole:
      return QStringList{FromText(row.entry.name), row.reading, SearchedText(row.entry), row.when}.join('\n');
    default:
      return {};
  }
}

QVariant SearchesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(kHeadings[static_cast<size_t>(section)])
                                                                  : QVariant();
}

Qt::ItemFlags SearchesModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return index.column() == kName ? flags | Qt::ItemIsEditable : flags;
}

bool SearchesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || index.column() != kName) {
    return false;
  }
  QString name = value.toString();
  for (QChar& character : name) {
    character = character.isPrint() || character.isSurrogate() ? character : QChar(' ');
  }
  const HistoryEntry entry = Entry(index.row());
  if (const std::string typed = ToText(name.trimmed()); typed != entry.name) {
    // The editor is still open, and what is heard of this may show other rows.
    QMetaObject::invokeMethod(
        this, [this, entry, typed] { emit NameTyped(entry, typed); }, Qt::QueuedConnection);
  }
  return true;
}

}  // namespace quorvane
