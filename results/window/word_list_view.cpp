#include "results/window/word_list_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "base/window/labels.h"

// The toolkit's list is passed over on purpose: it would walk every row.
// NOLINTBEGIN(bugprone-parent-virtual-call)
namespace quorvane {
namespace {

constexpr int kTextIndent = 3;
constexpr int kCopiedMilliseconds = 1000;

}  // namespace

WordListView::WordListView(QWidget* parent) : QListView(parent) {
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  lblTyped_ = Described(new NoteLabel("lblTyped", false, this), "lblTyped", "What was typed to find a word");
  lblCopied_ = new NoteLabel("lblCopied", true, this);
  typedPause_.setSingleShot(true);
  copiedTime_.setSingleShot(true);
  connect(&typedPause_, &QTimer::timeout, this, [this] { ShowTyped({}); });
  connect(&copiedTime_, &QTimer::timeout, lblCopied_, &QWidget::hide);
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

void WordListView::SetEmptyText(const QString& text) {
  emptyText_ = text;
  viewport()->update();
}

void WordListView::ShowCopied() {
  if (!currentIndex().isValid()) {
    return;
  }
  const QPoint place = viewport()->mapTo(this, visualRect(currentIndex()).topRight());
  lblCopied_->ShowAt(place, Qt::TopRightCorner, "Copied");
  copiedTime_.start(kCopiedMilliseconds);
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

int WordListView::RowAt(int y) const {
  const int row = verticalScrollBar()->value() + static_cast<int>(std::floor(static_cast<double>(y) / RowHeight()));
  return std::clamp(row, 0, RowCount() - 1);
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

QRegion WordListView::visualRegionForSelection(const QItemSelection& selection) const {
  QRegion region;
  for (const QItemSelectionRange& range : selection) {
    region += visualRect(range.topLeft()).united(visualRect(range.bottomRight())).intersected(viewport()->rect());
  }
  return region;
}

void WordListView::PaintRow(QPainter& painter, const QModelIndex& index) const {
  const QRect place = visualRect(index);
  const QPalette::ColorGroup group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
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

void WordListView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  if (RowCount() == 0) {
    // On a ground of whatever colour.
    const bool light = palette().color(QPalette::Base).lightness() >= 128;
    painter.setPen(light ? QColor(Qt::gray).darker(130) : QColor(Qt::lightGray));
    painter.drawText(viewport()->rect().adjusted(kTextIndent, 0, -kTextIndent, 0),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
  }
  const int first = verticalScrollBar()->value();
  const int last = std::min(RowCount() - 1, first + VisibleRows() + 1);
  for (int row = first; row <= last; ++row) {
    PaintRow(painter, model()->index(row, 0));
  }
}

void WordListView::scrollContentsBy(int, int) {
  lblCopied_->hide();
  viewport()->update();
}

void WordListView::doItemsLayout() {
  QAbstractItemView::doItemsLayout();
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
  ShowTyped({});
  lblCopied_->hide();
  pressedRow_ = -1;
  QListView::reset();
  verticalScrollBar()->setValue(0);
  updateGeometries();
}

}  // namespace quorvane
// NOLINTEND(bugprone-parent-virtual-call)
