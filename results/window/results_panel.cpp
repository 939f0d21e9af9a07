#include "results/window/results_panel.h"

#include <QAccessible>
#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalBlocker>
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
  auto* head = new QHBoxLayout;
  layout->addLayout(head);
  AddWithin(layout);
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
  head->addWidget(caption);
  head->addStretch();
  head->addWidget(lblLive_);
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

void ResultsPanel::AddWithin(QVBoxLayout* layout) {
  within_ = new QWidget(this);
  within_->setObjectName("withinRow");
  auto* row = new QHBoxLayout(within_);
  row->setContentsMargins(0, 0, 0, 0);
  QLabel* caption = MakeLabel("lblWithinLit", "Within these:", {}, within_);
  ShowsColour(caption, ColourElement::MainText);
  tbWithin_ = Named(new QLineEdit(within_), "tbWithin",
                    "A pattern that the words shown must fit, too; Enter keeps only them, Esc shows all again");
  tbWithin_->setAccessibleName("Within these");
  tbWithin_->installEventFilter(this);
  caption->setBuddy(tbWithin_);
  lblWithin_ = MakeReadableLabel("lblWithin", "How many of the words found are shown", within_);
  ShowsColour(lblWithin_, ColourElement::MainText);
  row->addWidget(caption);
  row->addWidget(tbWithin_, 1);
  row->addWidget(lblWithin_);
  layout->addWidget(within_);
  within_->hide();
  connect(tbWithin_, &QLineEdit::textChanged, this, [this] {
    if (HoldsKept(*tbWithin_, check_)) {
      emit WithinChanged(ToBytes(tbWithin_->text()));
    }
  });
  connect(tbWithin_, &QLineEdit::returnPressed, this, &ResultsPanel::WithinKept);
}

// Esc in the line shows all words again and leaves it.
bool ResultsPanel::eventFilter(QObject* watched, QEvent* event) {
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (watched != tbWithin_ || !key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) {
    return QWidget::eventFilter(watched, event);
  }
  event->accept();
  if (event->type() == QEvent::KeyPress) {
    tbWithin_->clear();
    FocusList();
    CloseWithin();
  }
  return true;
}

void ResultsPanel::OpenWithin() {
  results_.MakeReadyToNarrow();
  within_->show();
  tbWithin_->setFocus();
  tbWithin_->selectAll();
}

void ResultsPanel::CloseWithin() {
  const QSignalBlocker quiet(tbWithin_);
  tbWithin_->clear();
  within_->hide();
}

void ResultsPanel::ShowWithin(const QString& text) {
  lblWithin_->setText(text);
}

void ResultsPanel::ChangeResults(const std::function<void(ResultList&)>& change) {
  const size_t edition = results_.Edition();
  model_->BeginChange();
  try {
    change(results_);
  } catch (...) {  // Memory ran short: nothing half-made is shown.
    results_.Clear();
    model_->EndChange();
    CloseWithin();
    SelectionChanged();
    throw;
  }
  model_->EndChange();
  if (results_.Edition() != edition) {
    CloseWithin();
  }
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
  if (drag->exec(Qt::CopyAction) != Qt::IgnoreAction) {
    emit Dragged(count);
  }
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
