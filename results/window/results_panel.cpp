#include "results/window/results_panel.h"

#include <QAccessible>
#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "results/summary.h"
#include "results/window/word_list_model.h"
#include "results/window/word_list_view.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {
namespace {

constexpr int kFirstListTwips = 3540;
constexpr size_t kMostDragged = 100'000;  // Entries.

}  // namespace

ResultsPanel::ResultsPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("resultsPanel");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  QLabel* caption = MakeLabel("lblAnswers", "Results :", {}, this);
  lbWordList_ = Described(new WordListView(this), "lbWordList", "The words found; a double click copies one");
  lbWordList_->setAccessibleName("Results");
  SetRegionHeight(PixelsOfTwips(kFirstListTwips));
  lbWordList_->setMinimumWidth(240);
  caption->setBuddy(lbWordList_);
  lblXofY_ = MakeReadableLabel("lblXofY", "Number of word within current list, and also word length", this);
  lblXofY_->setMinimumHeight(2 * lblXofY_->fontMetrics().lineSpacing() + 8);
  lblXofY_->setAlignment(Qt::AlignTop);
  ShowsColour(caption, ColourElement::MainText);
  ShowsColour(lblXofY_, ColourElement::TimerText);
  ShowsColour(lbWordList_, ColourElement::ResultsText, ColourUse::ListText);
  ShowsColour(lbWordList_, ColourElement::ResultsBack, ColourUse::ListBackground);
  lblLive_ = MakeLabel("lblLive", "", "How many words fit what is typed", this);
  lblLive_->setForegroundRole(QPalette::PlaceholderText);
  lblLive_->hide();
  auto* head = new QHBoxLayout;
  head->addWidget(caption);
  head->addStretch();
  head->addWidget(lblLive_);
  layout->addLayout(head);
  layout->addWidget(lbWordList_, 1);
  layout->addWidget(lblXofY_);
  model_ = new WordListModel(results_, this);
  lbWordList_->setModel(model_);
  connect(lbWordList_, &WordListView::SelectionSettled, this, &ResultsPanel::SelectionChanged);
  connect(lbWordList_, &QAbstractItemView::clicked, this, &ResultsPanel::SelectionChanged);
  lbWordList_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(lbWordList_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& place) { emit MenuRequested(lbWordList_->viewport()->mapToGlobal(place)); });
  connect(lbWordList_, &QAbstractItemView::doubleClicked, this, [this] {
    emit EntryDoubleClicked();
    lbWordList_->ShowCopied();
  });
  connect(lbWordList_, &WordListView::CopyRequested, this, &ResultsPanel::CopySelection);
  connect(lbWordList_, &WordListView::LeaveRequested, this, &ResultsPanel::LeaveRequested);
  connect(lbWordList_, &WordListView::DragRequested, this, &ResultsPanel::DragSelected);
}

void ResultsPanel::ChangeResults(const std::function<void(ResultList&)>& change) {
  model_->BeginChange();
  try {
    change(results_);
  } catch (...) {  // Memory ran short: nothing half-made is shown.
    results_.Clear();
    model_->EndChange();
    SelectionChanged();
    throw;
  }
  model_->EndChange();
  SelectionChanged();
}

void ResultsPanel::SetListFont(const QFont& font) {
  lbWordList_->setFont(font);
}

void ResultsPanel::FocusList() {
  const QModelIndex current = lbWordList_->currentIndex();
  if (!current.isValid() && model_->rowCount() > 0) {
    lbWordList_->setCurrentIndex(model_->index(0, 0));
  } else if (current.isValid()) {
    lbWordList_->setCurrentIndex(current);
  }
  lbWordList_->setFocus();
}

void ResultsPanel::Select(std::optional<size_t> entry) {
  if (entry) {
    lbWordList_->setCurrentIndex(model_->index(static_cast<int>(*entry), 0));
  }
}

void ResultsPanel::ShowLive(const QString& text) {
  lblLive_->setVisible(!text.isEmpty());
  if (lblLive_->text() == text) {
    return;
  }
  lblLive_->setText(text);
  QAccessibleEvent said(lblLive_, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

void ResultsPanel::SetStale(bool stale) {
  lbWordList_->SetStale(stale);
}

std::optional<size_t> ResultsPanel::Selected() const {
  const QModelIndex current = lbWordList_->currentIndex();
  return lbWordList_->selectionModel()->isSelected(current) ? std::optional(static_cast<size_t>(current.row()))
                                                            : std::nullopt;
}

std::vector<std::pair<size_t, size_t>> ResultsPanel::SelectedRanges() const {
  return lbWordList_->SelectedRanges();
}

QString ResultsPanel::SelectedText() const {
  std::string text;
  for (const auto& [first, end] : SelectedRanges()) {
    for (size_t i = first; i < end; ++i) {
      text += (text.empty() ? "" : "\n") + results_.Entry(i);
    }
  }
  return FromBytes(text);
}

void ResultsPanel::SetEmptyText(const QString& text) {
  lbWordList_->SetEmptyText(text);
}

void ResultsPanel::ClearPosition() {
  lblXofY_->clear();
}

void ResultsPanel::SetRegionHeight(int height) {
  lbWordList_->SetFirstHeight(height);
}

void ResultsPanel::CopySelection() {
  if (const QString text = SelectedText(); !text.isEmpty()) {
    QGuiApplication::clipboard()->setText(text);
  }
}

void ResultsPanel::DragSelected() {
  size_t count = 0;
  for (const auto& [first, end] : SelectedRanges()) {
    count += end - first;
  }
  if (count > kMostDragged) {
    return;
  }
  auto* words = new QMimeData;
  words->setText(SelectedText());
  auto* drag = new QDrag(lbWordList_);
  drag->setMimeData(words);
  drag->exec(Qt::CopyAction);
}

void ResultsPanel::SelectionChanged() {
  const auto selected = Selected();
  const std::string word = selected ? results_.Entry(*selected) : "";
  if (selected) {
    lblXofY_->setText(ScreenText(PositionText(static_cast<int64_t>(*selected) + 1, static_cast<int64_t>(word.size()),
                                              static_cast<int64_t>(results_.FoundCount()))));
  } else {
    ClearPosition();
  }
  emit EntrySelected(FromBytes(word));
}

}  // namespace quorvane
