// The results box: the list of found words and what it says of the selected one.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "results/result_list.h"
#include "search/window/clean_box.h"

class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace quorvane {

class WordListModel;
class WordListView;

class ResultsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ResultsPanel(QWidget* parent);

  const ResultList& Results() const { return results_; }
  // Around every change of the results, so that the list shows them.
  void ChangeResults(const std::function<void(ResultList&)>& change);
  // See ResultList: the list stays as it is.
  void MakeReady(size_t words) { results_.MakeReady(words); }

  // The number of the current entry, from 0, when it is selected; it is, once anything is.
  std::optional<size_t> Selected() const;
  // All selected entries, ascending, as runs: the first number and the one behind the last.
  std::vector<std::pair<size_t, size_t>> SelectedRanges() const;
  // The selected entries, one a line.
  QString SelectedText() const;
  // What the list says while it holds nothing; empty for nothing.
  void SetEmptyText(const QString& text);
  void ClearPosition();
  // The height of the list's region at its first size, in pixels.
  void SetRegionHeight(int height);

  void SetListFont(const QFont& font);
  void FocusList();
  // Copies the selected words, one a line.
  void CopySelection();
  // Selects an entry and brings it into sight, or selects none.
  void Select(std::optional<size_t> entry);
  // The line that narrows the list: what it keeps of a text; opened and made ready to type into; closed and emptied, as
  // another list closes it; what it says.
  void SetCheck(KeptText check) { check_ = std::move(check); }
  void OpenWithin();
  void CloseWithin();
  void ShowWithin(const QString& text);
  // A grey text beside the caption; none for an empty one.
  void ShowLive(const QString& text);
  // Whether the list is shown in grey, since it is not that of the text in the box.
  void SetStale(bool stale);

 signals:
  // The word that is selected now; empty for none.
  void EntrySelected(const QString& word);
  void EntryDoubleClicked();
  void LeaveRequested();
  // The line that narrows the list holds another text; Enter was pressed in it.
  void WithinChanged(const std::string& text);
  void WithinKept();
  // So many selected words were dropped elsewhere.
  void Dragged(size_t count);
  // The menu of the selected words is wanted at a place on the screen.
  void MenuRequested(const QPoint& place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SelectionChanged();
  void AddWithin(QVBoxLayout* layout);
  void DragSelected();

  ResultList results_;
  WordListModel* model_ = nullptr;
  WordListView* lbWordList_ = nullptr;
  QLabel* lblXofY_ = nullptr;
  QLabel* lblLive_ = nullptr;
  QWidget* within_ = nullptr;
  QLineEdit* tbWithin_ = nullptr;
  QLabel* lblWithin_ = nullptr;
  KeptText check_;
};

}  // namespace quorvane
