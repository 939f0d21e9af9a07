// Keys, clicks, selection and what is typed in the list on the screen.

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "base/window/labels.h"
#include "results/window/word_list_view.h"

// The toolkit's list is passed over on purpose: it would walk every row.
// NOLINTBEGIN(bugprone-parent-virtual-call)
namespace quorvane {
namespace {

// The first and the last row of a selection.
std::pair<int, int> Ends(const QItemSelection& selection) {
  std::pair ends(selection.front().top(), selection.front().bottom());
  for (const QItemSelectionRange& range : selection) {
    ends = {std::min(ends.first, range.top()), std::max(ends.second, range.bottom())};
  }
  return ends;
}

// What a screen reader is told of rows; `row` is -1 for the list.
void Tell(QWidget* list, QAccessible::Event what, int row) {
  QAccessibleEvent event(list, what);
  event.setChild(row);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

std::vector<std::pair<size_t, size_t>> WordListView::SelectedRanges() const {
  std::vector<std::pair<size_t, size_t>> ranges;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    ranges.emplace_back(range.top(), range.bottom() + 1);
  }
  std::sort(ranges.begin(), ranges.end());
  size_t last = 0;
  for (size_t i = 1; i < ranges.size(); ++i) {
    if (ranges[i].first <= ranges[last].second) {
      ranges[last].second = std::max(ranges[last].second, ranges[i].second);
    } else {
      ranges[++last] = ranges[i];
    }
  }
  ranges.resize(std::min(ranges.size(), last + 1));
  return ranges;
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

bool WordListView::OneIsSelected() const {
  const auto ranges = SelectedRanges();
  return ranges.size() == 1 && ranges.front().second == ranges.front().first + 1;
}

// A word stays selected until another is: neither a click beside the words nor a modifier takes the last one away.
QItemSelectionModel::SelectionFlags WordListView::selectionCommand(const QModelIndex& index,
                                                                   const QEvent* event) const {
  if (!index.isValid()) {
    return QItemSelectionModel::NoUpdate;
  }
  if (event == nullptr || !event->isInputEvent()) {
    return QItemSelectionModel::ClearAndSelect;
  }
  const auto modifiers = static_cast<const QInputEvent*>(event)->modifiers();
  const bool shift = modifiers.testFlag(Qt::ShiftModifier) && selectionModel()->hasSelection();
  const bool control = modifiers.testFlag(Qt::ControlModifier);
  const bool selected = selectionModel()->isSelected(index);
  const auto toggle = selected && OneIsSelected() ? QItemSelectionModel::NoUpdate : QItemSelectionModel::Toggle;
  if (event->type() == QEvent::KeyPress) {
    const bool space = static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Space;
    return shift      ? QItemSelectionModel::SelectCurrent
           : !control ? (space ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect)
           : space    ? toggle
                      : QItemSelectionModel::Select;
  }
  if (event->type() == QEvent::MouseButtonRelease) {
    return index.row() == pressedRow_ ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
  }
  if (event->type() == QEvent::MouseButtonPress) {
    const bool right = static_cast<const QMouseEvent*>(event)->button() == Qt::RightButton;
    if (!right && (shift || control)) {
      return shift ? QItemSelectionModel::SelectCurrent : toggle;
    }
    // A selected word may be about to be dragged: only its release selects it alone.
    return selected ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect;
  }
  return QItemSelectionModel::ClearAndSelect;
}

void WordListView::selectAll() {
  if (const int rows = RowCount(); rows > 0) {
    selectionModel()->select(QItemSelection(model()->index(0, 0), model()->index(rows - 1, 0)),
                             QItemSelectionModel::ClearAndSelect);
  }
}

void WordListView::KeepCurrentSelected() {
  if (!selectionModel()->hasSelection() || selectionModel()->isSelected(currentIndex())) {
    return;
  }
  const int row = currentIndex().isValid() ? currentIndex().row() : verticalScrollBar()->value();
  int nearest = -1;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    const int candidate = std::clamp(row, range.top(), range.bottom());
    nearest = nearest < 0 || std::abs(candidate - row) < std::abs(nearest - row) ? candidate : nearest;
  }
  selectionModel()->setCurrentIndex(model()->index(nearest, 0), QItemSelectionModel::NoUpdate);
}

void WordListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);
  if (!finding_) {
    ShowTyped({});
  }
  if (QAccessible::isActive() && current.isValid() && hasFocus()) {
    Tell(this, QAccessible::Focus, current.row());
  }
  if (selectionModel()->isSelected(current)) {
    emit SelectionSettled();
  }
}

void WordListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QAbstractItemView::selectionChanged(selected, deselected);
  if (QAccessible::isActive()) {
    for (const auto& [rows, what] :
         {std::pair(&deselected, QAccessible::SelectionRemove), std::pair(&selected, QAccessible::SelectionAdd)}) {
      if (rows->isEmpty()) {
        continue;
      }
      const auto [first, last] = Ends(*rows);
      Tell(this, first == last ? what : QAccessible::SelectionWithin, first == last ? first : -1);
    }
  }
  if (!selectionModel()->hasSelection() || selectionModel()->isSelected(currentIndex())) {
    emit SelectionSettled();
  }
}

void WordListView::ShowTyped(const QString& typed) {
  typed_ = typed;
  if (typed.isEmpty()) {
    typedPause_.stop();
    lblTyped_->hide();
  } else {
    typedPause_.start(QApplication::keyboardInputInterval());
    lblTyped_->ShowAt(viewport()->geometry().bottomRight(), Qt::BottomRightCorner, typed);
  }
}

void WordListView::keyboardSearch(const QString& search) {
  const int rows = RowCount();
  if (rows == 0 || search.isEmpty() || !search.front().isPrint() || (typed_.isEmpty() && search.front().isSpace())) {
    return;
  }
  const auto find = [&](const QString& text, int from) {
    return model()->match(model()->index(from % rows, 0), Qt::DisplayRole, text, 1,
                          Qt::MatchStartsWith | Qt::MatchWrap);
  };
  const int current = currentIndex().isValid() ? currentIndex().row() : -1;
  QString typed = typed_ + search;
  QModelIndexList found = typed_.isEmpty() ? find(typed, current + 1) : find(typed, std::max(current, 0));
  // One key again and again walks the words that begin with it.
  if (found.isEmpty() && typed.count(typed.front()) == typed.size()) {
    typed = typed.front();
    found = find(typed, current + 1);
  }
  if (!found.isEmpty()) {
    finding_ = true;
    setCurrentIndex(found.front());
    finding_ = false;
  }
  ShowTyped(typed);
}

bool WordListView::event(QEvent* event) {
  // While something is typed, Esc ends that and is no shortcut; nor are the list's own selection keys.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool typing = !typed_.isEmpty() && key->key() == Qt::Key_Escape;
    const bool selecting = key->modifiers() == Qt::ControlModifier &&
                           (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down || key->key() == Qt::Key_Space);
    if (typing || selecting) {
      event->accept();
      return true;
    }
  }
  return QListView::event(event);
}

void WordListView::keyPressEvent(QKeyEvent* event) {
  lblCopied_->hide();
  if (event->matches(QKeySequence::Copy)) {
    emit CopyRequested();
  } else if (!typed_.isEmpty() && event->key() == Qt::Key_Escape) {
    ShowTyped({});
  } else if (!typed_.isEmpty() && event->key() == Qt::Key_Backspace) {
    ShowTyped(typed_.chopped(1));
  } else if (event->key() == Qt::Key_Escape) {
    emit LeaveRequested();
  } else {
    QListView::keyPressEvent(event);
    KeepCurrentSelected();
  }
}

void WordListView::mousePressEvent(QMouseEvent* event) {
  lblCopied_->hide();
  ShowTyped({});
  const QModelIndex index = indexAt(event->position().toPoint());
  const bool plain = event->button() == Qt::LeftButton &&
                     (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) == Qt::NoModifier;
  pressedRow_ = plain && index.isValid() && selectionModel()->isSelected(index) ? index.row() : -1;
  pressedAt_ = event->position().toPoint();
  QListView::mousePressEvent(event);
  KeepCurrentSelected();
}

// A drag from a selected word takes the selected words along; from another word it selects on its way.
void WordListView::mouseMoveEvent(QMouseEvent* event) {
  if (pressedRow_ >= 0 && event->buttons() == Qt::LeftButton) {
    if ((event->position().toPoint() - pressedAt_).manhattanLength() >= QApplication::startDragDistance()) {
      pressedRow_ = -1;
      emit DragRequested();
    }
  } else if (event->buttons() == Qt::NoButton || !event->modifiers().testFlag(Qt::ControlModifier)) {
    QListView::mouseMoveEvent(event);
  }
}

void WordListView::mouseDoubleClickEvent(QMouseEvent* event) {
  lblCopied_->hide();
  QListView::mouseDoubleClickEvent(event);
}

void WordListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  if (RowCount() == 0) {
    return;
  }
  const auto [top, bottom] = std::minmax({RowAt(rect.top()), RowAt(rect.bottom())});
  selectionModel()->select(QItemSelection(model()->index(top, 0), model()->index(bottom, 0)), command);
}

}  // namespace quorvane
// NOLINTEND(bugprone-parent-virtual-call)
