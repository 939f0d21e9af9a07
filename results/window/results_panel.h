// The results box: the list of found words and what it says of the selected one.
#pragma once

#include <QWidget>
#include <optional>

#include "results/result_list.h"
#include "results/window/word_list_model.h"
#include "results/window/word_list_view.h"

class QLabel;

namespace quorvane {

class ResultsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ResultsPanel(QWidget* parent);

  ResultList& Results() { return results_; }
  const ResultList& Results() const { return results_; }
  // Around every change of the results, so that the list shows them.
  template <class Change>
  void ChangeResults(Change change) {
    model_->BeginChange();
    change(results_);
    model_->EndChange();
    SelectionChanged();
  }

  // The number of the selected entry, from 0.
  std::optional<size_t> Selected() const;
  void ClearPosition();
  // The height of the list's region at its first size, in pixels.
  void SetRegionHeight(int height);

  WordListView* List() const { return lbWordList_; }
  QLabel* PositionLabel() const { return lblXofY_; }
  QLabel* Caption() const { return lblAnswers_; }

 signals:
  void EntrySelected(bool selected);
  void EntryDoubleClicked();

 private:
  void SelectionChanged();

  ResultList results_;
  WordListModel* model_ = nullptr;
  QLabel* lblAnswers_ = nullptr;
  WordListView* lbWordList_ = nullptr;
  QLabel* lblXofY_ = nullptr;
};

}  // namespace quorvane
