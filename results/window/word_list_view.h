// The list on the screen: rows of one height, placed by arithmetic. A list of 2,000,000 rows costs what its visible
// rows cost: whatever the toolkit's list would do by walking its rows is done here instead. What is left of that list
// is what a screen reader sees of it: a list with a row for each word, made when it is asked for.
//
// Several rows may be selected, kept as ranges. Once something is selected, the current row is one of the selected
// ones, and one stays selected.
#pragma once

#include <QListView>
#include <QTimer>
#include <utility>
#include <vector>

namespace quorvane {

class NoteLabel;

class WordListView : public QListView {
  Q_OBJECT

 public:
  explicit WordListView(QWidget* parent);

  // The height of the view at its first size, in pixels; from there it grows with the window.
  void SetFirstHeight(int height);
  // Words in grey: they are not what is asked for any more.
  void SetStale(bool stale);
  // Shown in grey while there are no rows.
  void SetEmptyText(const QString& text);
  // Says beside the current row that it was copied, for a second or until the next key or click.
  void ShowCopied();

  // The selected rows, ascending, as runs: the first row and the one behind the last.
  std::vector<std::pair<size_t, size_t>> SelectedRanges() const;

  QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  QModelIndex indexAt(const QPoint& point) const override;
  QSize sizeHint() const override;
  void reset() override;
  void doItemsLayout() override;
  void selectAll() override;
  // Takes what is typed further and goes to the next row that begins with all of it; letter case does not count.
  void keyboardSearch(const QString& search) override;

 signals:
  // Selection or current row changed, and they agree: the current row is selected, or none is.
  void SelectionSettled();
  void CopyRequested();
  // Esc, with nothing left to end in the list.
  void LeaveRequested();
  // The selected words are being dragged.
  void DragRequested();

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  int horizontalOffset() const override { return 0; }
  int verticalOffset() const override;
  bool isIndexHidden(const QModelIndex& index) const override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  QRegion visualRegionForSelection(const QItemSelection& selection) const override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void changeEvent(QEvent* event) override;

 private:
  int RowHeight() const;
  int VisibleRows() const;
  int RowCount() const;
  // The row at a height of the viewport, in or outside it; not below 0 and not behind the last.
  int RowAt(int y) const;
  QString ShownText(const QModelIndex& index) const;
  void PaintRow(QPainter& painter, const QModelIndex& index) const;
  bool OneIsSelected() const;
  // Makes the selected row nearest to the current one the current one.
  void KeepCurrentSelected();
  void ShowTyped(const QString& typed);

  int firstHeight_ = 0;
  bool stale_ = false;
  QString emptyText_;
  int pressedRow_ = -1;  // A selected row that the left button was pressed on: its drag takes the selected words along.
  QPoint pressedAt_;
  QString typed_;
  bool finding_ = false;  // The current row is being moved to what was typed.
  QTimer typedPause_;
  NoteLabel* lblTyped_ = nullptr;
  QTimer copiedTime_;
  NoteLabel* lblCopied_ = nullptr;
};

}  // namespace quorvane
