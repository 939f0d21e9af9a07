#include "results/window/word_list_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>

namespace quorvane {
namespace {

constexpr int kTextIndent = 3;

}  // namespace

WordListView::WordListView(QWidget* parent) : QAbstractItemView(parent) {
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
}

void WordListView::SetFirstHeight(int height) {
  firstHeight_ = height;
  updateGeometry();
}

void WordListView::SetStale(bool stale) {
  if (stale_ != stale) {
    stale_ = stale;
    viewport()->update();
  }
}

QSize WordListView::sizeHint() const {
  return {QAbstractItemView::sizeHint().width(), firstHeight_};
}

int WordListView::RowHeight() const {
  return fontMetrics().height();
}

int WordListView::VisibleRows() const {
  return std::max(1, viewport()->height() / RowHeight());
}

int WordListView::RowCount() const {
  return model() == nullptr ? 0 : model()->rowCount();
}

int WordListView::verticalOffset() const {
  return verticalScrollBar()->value() * RowHeight();
}

QRect WordListView::visualRect(const QModelIndex& index) const {
  if (!index.isValid()) {
    return {};
  }
  return {0, (index.row() - verticalScrollBar()->value()) * RowHeight(), viewport()->width(), RowHeight()};
}

QModelIndex WordListView::indexAt(const QPoint& point) const {
  const int row = verticalScrollBar()->value() + point.y() / RowHeight();
  return point.y() >= 0 && row < RowCount() ? model()->index(row, 0) : QModelIndex();
}

void WordListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  if (!index.isValid()) {
    return;
  }
  QScrollBar* bar = verticalScrollBar();
  const int first = bar->value();
  const int row = index.row();
  if (hint == PositionAtCenter) {
    bar->setValue(row - VisibleRows() / 2);
  } else if (hint == PositionAtTop || row < first) {
    bar->setValue(row);
  } else if (hint == PositionAtBottom || row >= first + VisibleRows()) {
    bar->setValue(row - VisibleRows() + 1);
  }
}

QModelIndex WordListView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
  const int rows = RowCount();
  if (rows == 0) {
    return {};
  }
  // The first key selects the row that has the focus; from there on the keys move.
  const bool none = !selectionModel()->hasSelection();
  int row = std::max(currentIndex().row(), 0);
  switch (action) {
    case MoveUp:
    case MovePrevious:
    case MoveLeft:
      row -= none ? 0 : 1;
      break;
    case MoveDown:
    case MoveNext:
    case MoveRight:
      row += none ? 0 : 1;
      break;
    case MovePageUp:
      row -= VisibleRows();
      break;
    case MovePageDown:
      row += VisibleRows();
      break;
    case MoveHome:
      row = 0;
      break;
    case MoveEnd:
      row = rows - 1;
      break;
  }
  const QModelIndex target = model()->index(std::clamp(row, 0, rows - 1), 0);
  if (none && target == currentIndex()) {
    selectionModel()->select(target, QItemSelectionModel::ClearAndSelect);
  }
  return target;
}

// One word is selected, and stays so until another is: neither a click beside the words nor a modifier changes that.
QItemSelectionModel::SelectionFlags WordListView::selectionCommand(const QModelIndex& index, const QEvent*) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

QString WordListView::ShownText(const QModelIndex& index) const {
  return fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, viewport()->width() - kTextIndent);
}

bool WordListView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (index.isValid() && ShownText(index) != index.data().toString()) {
      QToolTip::showText(help->globalPos(), index.data().toString(), viewport(), visualRect(index));
      return true;
    }
  }
  return QAbstractItemView::viewportEvent(event);
}

bool WordListView::isIndexHidden(const QModelIndex&) const {
  return false;
}

void WordListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  const QModelIndex index = indexAt(rect.bottomRight());
  selectionModel()->select(index.isValid() ? QItemSelection(index, index) : QItemSelection(), command);
}

QRegion WordListView::visualRegionForSelection(const QItemSelection& selection) const {
  QRegion region;
  for (const QItemSelectionRange& range : selection) {
    region += visualRect(range.topLeft()).united(visualRect(range.bottomRight())).intersected(viewport()->rect());
  }
  return region;
}

void WordListView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const int first = verticalScrollBar()->value();
  const int last = std::min(RowCount() - 1, first + VisibleRows() + 1);
  const QPalette::ColorGroup group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
  for (int row = first; row <= last; ++row) {
    const QModelIndex index = model()->index(row, 0);
    const QRect place = visualRect(index);
    const bool selected = selectionModel()->isSelected(index);
    if (selected) {
      painter.fillRect(place, palette().brush(group, QPalette::Highlight));
    }
    painter.setPen(palette().color(stale_ && !selected ? QPalette::Disabled : group,
                                   selected ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(place.adjusted(kTextIndent, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     ShownText(index));
    if (hasFocus() && index == currentIndex()) {
      QStyleOptionFocusRect option;
      option.initFrom(this);
      option.rect = place;
      option.backgroundColor = palette().color(group, selected ? QPalette::Highlight : QPalette::Base);
      style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
  }
}

void WordListView::updateGeometries() {
  verticalScrollBar()->setPageStep(VisibleRows());
  verticalScrollBar()->setRange(0, std::max(0, RowCount() - VisibleRows()));
  QAbstractItemView::updateGeometries();
}

void WordListView::resizeEvent(QResizeEvent* event) {
  QAbstractItemView::resizeEvent(event);
  updateGeometries();
}

void WordListView::changeEvent(QEvent* event) {
  QAbstractItemView::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    updateGeometries();
    viewport()->update();
  }
}

void WordListView::reset() {
  QAbstractItemView::reset();
  verticalScrollBar()->setValue(0);
  updateGeometries();
}

}  // namespace quorvane
