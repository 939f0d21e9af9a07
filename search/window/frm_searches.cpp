#include "search/window/frm_searches.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "base/window/beside.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "search/window/searches_model.h"

namespace quorvane {
namespace {

// The box that a name is typed into.
class NameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
    auto* box = Named(new QLineEdit(parent), "tbName", "The search's name; empty for none");
    box->setAccessibleName("Name");
    return box;
  }
};

bool IsRowKey(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

FrmSearches::FrmSearches(QWidget* parent) : QDialog(parent) {
  setObjectName("frmSearches");
  setWindowTitle("Searches");
  BesideTheWork(this);
  auto* layout = new QVBoxLayout(this);
  tbFilter_ = Named(new QLineEdit(this), "tbFilter", "Shows the searches that hold this text");
  tbFilter_->setAccessibleName("Filter");
  tbFilter_->setPlaceholderText("Filter");
  tbFilter_->setClearButtonEnabled(true);
  layout->addWidget(tbFilter_);
  MakeTable();
  layout->addWidget(lvSearches_, 1);
  lblSearched_ = Described(new ElidedLabel(this), "lblSearched", "The pattern and the lexicon of the search");
  layout->addWidget(lblSearched_);
  lblNote_ = MakeLabel("lblNote", "", "What could not be done", this);
  lblNote_->setWordWrap(true);
  lblNote_->hide();
  layout->addWidget(lblNote_);
  search_ = MakeButton("cmdSearch", "&Search", "Search it again (Enter)");
  name_ = MakeButton("cmdName", "&Name", "Name the search, or change its name (Ctrl+N)");
  forget_ = MakeButton("cmdForget", "&Forget", "Forget the search (Del)");
  forgetAll_ = MakeButton("cmdForgetAll", "Forget &all", "Forget every search");
  QPushButton* close = MakeButton("cmdClose", "Close", "Close this window");
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {search_, name_, forget_, forgetAll_}) {
    buttons->addWidget(button);
  }
  buttons->addStretch();
  buttons->addWidget(close);
  layout->addLayout(buttons);
  connect(tbFilter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    shown_->setFilterFixedString(text);
    ChooseRow(0);
  });
  connect(lvSearches_, &QTreeView::doubleClicked, this, &FrmSearches::SearchChosen);
  connect(search_, &QPushButton::clicked, this, &FrmSearches::SearchChosen);
  connect(name_, &QPushButton::clicked, this, &FrmSearches::NameChosen);
  connect(new QShortcut(QKeySequence("Ctrl+N"), this), &QShortcut::activated, this, &FrmSearches::NameChosen);
  connect(forget_, &QPushButton::clicked, this, &FrmSearches::ForgetChosen);
  connect(forgetAll_, &QPushButton::clicked, this, &FrmSearches::ForgetAllRequested);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  resize(680, 420);
  lvSearches_->setFocus();
}

void FrmSearches::MakeTable() {
  model_ = new SearchesModel(this);
  shown_ = new QSortFilterProxyModel(this);
  shown_->setSourceModel(model_);
  shown_->setSortRole(SearchesModel::kSortRole);
  shown_->setFilterRole(SearchesModel::kFilterRole);
  shown_->setFilterCaseSensitivity(Qt::CaseInsensitive);
  lvSearches_ = Described(new QTreeView(this), "lvSearches", "Enter searches, Ctrl+N names, Del forgets");
  lvSearches_->setAccessibleName("Searches");
  lvSearches_->setModel(shown_);
  lvSearches_->setItemDelegate(new NameDelegate(lvSearches_));
  lvSearches_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lvSearches_->setRootIsDecorated(false);
  lvSearches_->setUniformRowHeights(true);
  lvSearches_->setAllColumnsShowFocus(true);
  lvSearches_->setTabKeyNavigation(false);
  lvSearches_->setSortingEnabled(true);
  lvSearches_->sortByColumn(SearchesModel::kWhen, Qt::DescendingOrder);
  QHeaderView* header = lvSearches_->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(SearchesModel::kReading, QHeaderView::Stretch);
  const int digit = fontMetrics().horizontalAdvance('0');
  header->resizeSection(SearchesModel::kName, 16 * digit);
  header->resizeSection(SearchesModel::kWords, 11 * digit);
  header->resizeSection(SearchesModel::kWhen, 20 * digit);
  connect(lvSearches_->selectionModel(), &QItemSelectionModel::currentChanged, this, &FrmSearches::ChosenChanged);
  connect(model_, &SearchesModel::NameTyped, this, &FrmSearches::NameRequested);
  for (QWidget* control : {static_cast<QWidget*>(tbFilter_), static_cast<QWidget*>(lvSearches_)}) {
    control->installEventFilter(this);
  }
}

QPushButton* FrmSearches::MakeButton(const char* name, const char* caption, const char* toolTip) {
  auto* button = Named(new QPushButton(caption, this), name, toolTip);
  button->setAutoDefault(false);
  return button;
}

void FrmSearches::ShowEntries(const std::vector<HistoryEntry>& entries) {
  const auto chosen = Chosen();
  const int place = lvSearches_->currentIndex().row();
  model_->Show(entries);
  const int row = chosen ? model_->RowOf(*chosen) : -1;
  ChooseRow(row >= 0 ? shown_->mapFromSource(model_->index(row, 0)).row() : std::max(place, 0));
  forgetAll_->setEnabled(!entries.empty());
}

void FrmSearches::Say(const std::string& text) {
  lblNote_->setText(FromText(text));
  lblNote_->setVisible(!text.empty());
}

std::optional<HistoryEntry> FrmSearches::Chosen() const {
  const QModelIndex index = shown_->mapToSource(lvSearches_->currentIndex());
  return index.isValid() ? std::optional(model_->Entry(index.row())) : std::nullopt;
}

// The row shown there, or the last one.
void FrmSearches::ChooseRow(int row) {
  const QModelIndex index = shown_->index(std::min(row, shown_->rowCount() - 1), SearchesModel::kReading);
  lvSearches_->setCurrentIndex(index);
  lvSearches_->scrollTo(index);
  ChosenChanged();
}

void FrmSearches::ChosenChanged() {
  const auto chosen = Chosen();
  for (QPushButton* button : {search_, name_, forget_}) {
    button->setEnabled(chosen.has_value());
  }
  const QString text = chosen ? SearchedText(*chosen) : QString();
  lblSearched_->setText(text);
  lblSearched_->setToolTip(text);
}

void FrmSearches::SearchChosen() {
  if (const auto chosen = Chosen()) {
    emit SearchRequested(*chosen);
  }
}

void FrmSearches::NameChosen() {
  const QModelIndex index = lvSearches_->currentIndex().siblingAtColumn(SearchesModel::kName);
  if (index.isValid()) {
    lvSearches_->setFocus();
    lvSearches_->edit(index);
  }
}

void FrmSearches::ForgetChosen() {
  if (const auto chosen = Chosen()) {
    emit ForgetRequested(*chosen);
  }
}

// Enter searches in filter and table; the keys of the rows act in the filter, too. Keys of a name being typed, which
// come by here on their way up, are not meant.
bool FrmSearches::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::KeyPress && widget != nullptr && widget->hasFocus()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      SearchChosen();
      return true;
    }
    if (watched == lvSearches_ && key == Qt::Key_Delete) {
      ForgetChosen();
      return true;
    }
    if (watched == tbFilter_ && IsRowKey(key)) {
      QApplication::sendEvent(lvSearches_, event);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace quorvane
