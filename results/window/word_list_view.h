// The list on the screen: rows of one height, placed by arithmetic. A list of 2,000,000 rows costs what its visible
// rows cost, where a general list view would measure out every row.
#pragma once

#include <QAbstractItemView>

namespace quorvane {

class WordListView : public QAbstractItemView {
  Q_OBJECT

 public:
  explicit WordListView(QWidget* parent);

  // The height of the view at its first size, in pixels; from there it grows with the window.
  void SetFirstHeight(int height);
  // Words in grey: they are not what is asked for any more.
  void SetStale(bool stale);

  QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  QModelIndex indexAt(const QPoint& point) const override;
  QSize sizeHint() const override;
  void reset() override;

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  int horizontalOffset() const override { return 0; }
  int verticalOffset() const override;
  bool isIndexHidden(const QModelIndex& index) const override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  QRegion visualRegionForSelection(const QItemSelection& selection) const override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void updateGeometries() override;
  void changeEvent(QEvent* event) override;

 private:
  int RowHeight() const;
  int VisibleRows() const;
  int RowCount() const;
  QString ShownText(const QModelIndex& index) const;

  int firstHeight_ = 0;
  bool stale_ = false;
};

}  // namespace quorvane
