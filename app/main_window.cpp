#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "app/file_drop.h"
#include "app/guard.h"
#include "app/start/shut_down.h"
#include "base/window/beside.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lookup/window/lookup_panel.h"
#include "results/window/appearance_panel.h"
#include "results/window/result_options_panel.h"
#include "results/window/results_panel.h"
#include "results/window/sort_panel.h"
#include "search/window/conditions_panel.h"
#include "search/window/length_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"
#include "settings/window/light_palette.h"

namespace quorvane {
namespace {

constexpr int kWideTwips = 3675;
constexpr int kListWidth = 280;
constexpr int kRightColumnWidth = 190;
constexpr int kGroupSpacing = 8;
constexpr int kHistoryDelay = 200;  // Milliseconds from the ready window: the start does not wait for the history.

// The same palette with each colour set by itself: none is taken over from the widget around.
QPalette EveryRoleOf(const QPalette& palette) {
  QPalette own;
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      own.setBrush(group, static_cast<QPalette::ColorRole>(role),
                   palette.brush(group, static_cast<QPalette::ColorRole>(role)));
    }
  }
  return own;
}

}  // namespace

MainWindow::MainWindow(Services& services)
    : services_(services),
      colours_(*this),
      files_(*this, session_, services),
      searching_(
          *this, session_, services, [this] { return files_.AutoSave(); },
          [this](const Search& search, size_t found) { history_.Record(search, found); }),
      options_(*this, session_, services),
      workbench_(*this, session_, services, searching_, files_),
      history_(*this, session_, services, searching_, files_) {
  setObjectName("Quorvane");
  // The stored colours are made for a light window; what lies outside it follows the desktop.
  setPalette(LightPalette());
  menuBar()->setPalette(EveryRoleOf(QApplication::palette()));
  MakePanels();
  LayOut();
  menu_ = std::make_unique<CommandMenu>(
      *this, Controllers{searching_, files_, options_, workbench_, history_}, [this] { return State(); },
      [this](std::string_view name, const std::function<void()>& command) { Do(name, command); });
  menu_->OnOpening(Menu::Select, [this] {
    history_.EndWalk();
    searching_.RefreshListCaptions();
  });
  menu_->OnOpening(Menu::Options,
                   [this] { menu_->SetCaption(Command::ClearLog, 0, FromText(services_.log.ClearCaption())); });
  WireSearch();
  WireHistory();
  WireResults();
  SetTabOrder();
  qApp->installEventFilter(this);
  new FileDrop(this, [this](const std::vector<std::string>& paths) {
    Do("Import a word list", [&] { files_.TakeDropped(paths); });
  });
}

MainWindow::~MainWindow() {
  qApp->removeEventFilter(this);
  pattern_->disconnect(this);  // It loses the focus when nobody can hear of it.
  if (!session_.ended) {
    End("Application terminated successfully");
  }
}

bool MainWindow::Start() {
  bool ready = false;
  const bool done =
      Guarded(services_, this, "Start", [&] { ready = StartUp(*this, session_, services_, files_, options_).Run(); });
  if (!done && !session_.ended) {
    session_.stopFlag = true;
    session_.exitStatus = 1;
    ShutDown(services_, session_);
  }
  if (ready) {
    QTimer::singleShot(kHistoryDelay, this, [this] { history_.ReadAtStart(); });
  }
  return ready;
}

void MainWindow::MakePanels() {
  auto* central = new QWidget(this);
  central->setObjectName("central");
  setCentralWidget(central);
  ShowsColour(this, ColourElement::MainBack, ColourUse::Background);
  ShowsColour(central, ColourElement::MainBack, ColourUse::Background);
  pattern_ = new PatternPanel(central);
  conditions_ = new ConditionsPanel(central);
  lengths_ = new LengthPanel(services_.settings, central);
  sort_ = new SortPanel(central);
  appearance_ = new AppearancePanel(services_.settings, central);
  results_ = new ResultsPanel(central);
  resultOptions_ = new ResultOptionsPanel(central);
  lists_ = new ListsPanel(central);
  lookup_ = new LookupPanel(central);
  MakeStatus(central);
}

void MainWindow::MakeStatus(QWidget* central) {
  lblStatus_ = MakeLabel("lblStatus", "", "status line", central);
  lblStatus_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  lblStatus_->setMargin(3);
  // A long text is cut at the window's edge instead of widening the window.
  lblStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  ShowsColour(lblStatus_, ColourElement::StatusText);
  lblTimer_ = Described(MakeReadableLabel("lblTimer", "", central), "lblTimer", "Time of the last search or sort");
  lblTimer_->setMinimumWidth(lblTimer_->fontMetrics().horizontalAdvance("Time = 000.00s "));
  ShowsColour(lblTimer_, ColourElement::TimerText);
  pbBar_ = Described(new QProgressBar(central), "pbBar", "Progress of the search");
  pbBar_->setTextVisible(false);
  pbBar_->setAccessibleName("Progress");
  QSizePolicy keepsItsPlace = pbBar_->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  pbBar_->setSizePolicy(keepsItsPlace);
  pbBar_->setMaximumHeight(14);
  pbBar_->hide();
}

// Left the options of the search, in the middle the results, right the lists and what is done with results.
void MainWindow::LayOut() {
  grid_ = new QGridLayout(centralWidget());
  grid_->setHorizontalSpacing(14);
  auto* left = new QVBoxLayout;
  left->setSpacing(kGroupSpacing);
  left->addWidget(lengths_);
  left->addWidget(sort_);
  left->addWidget(appearance_);
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->addWidget(lists_);
  right->addSpacing(kGroupSpacing);
  right->addWidget(resultOptions_);
  right->addSpacing(kGroupSpacing);
  right->addWidget(lookup_);
  right->addStretch();
  right->addWidget(lblTimer_);
  right->addWidget(pbBar_);
  grid_->addWidget(pattern_, 0, 0, 1, 3);
  grid_->addWidget(conditions_, 1, 0, 1, 3);
  grid_->addLayout(left, 2, 0);
  grid_->addWidget(results_, 2, 1);
  grid_->addLayout(right, 2, 2);
  grid_->addWidget(lblStatus_, 3, 0, 1, 3);
  grid_->setColumnStretch(1, 1);
  grid_->setRowStretch(2, 1);
  grid_->setColumnMinimumWidth(1, kListWidth);
  grid_->setColumnMinimumWidth(2, kRightColumnWidth);
}

void MainWindow::Do(std::string_view tried, const std::function<void()>& command) {
  Guarded(services_, this, tried, [&] {
    history_.EndWalk();
    command();
  });
}

void MainWindow::WireSearch() {
  const auto status = [this](const std::string& text) { ShowStatus(text); };
  pattern_->SetCheck([this](const std::string& text, size_t caret) { return searching_.Kept(text, caret); });
  connect(pattern_, &PatternPanel::TextChanged, this, [this](const std::string& text, size_t caret) {
    history_.EndWalk();
    searching_.CheckInput(text, caret);
  });
  connect(pattern_, &PatternPanel::ModeChosen, this, [this](WordType type) { searching_.SelectMode(type); });
  connect(pattern_, &PatternPanel::SearchRequested, this, [this] { Do("Search", [this] { searching_.FindWords(); }); });
  connect(pattern_, &PatternPanel::ExitRequested, this, [this] { files_.Exit(); });
  conditions_->SetCheck(
      [this](const std::string& text, size_t caret) { return searching_.KeptOfCondition(text, caret); });
  connect(conditions_, &ConditionsPanel::Changed, this, [this] { searching_.AskedChanged(); });
  connect(conditions_, &ConditionsPanel::SearchRequested, this,
          [this] { Do("Search", [this] { searching_.FindWords(); }); });
  connect(lengths_, &LengthPanel::Status, this, status);
  connect(lengths_, &LengthPanel::Changed, this, [this] { searching_.AskedChanged(); });
  connect(resultOptions_, &ResultOptionsPanel::UpperCaseChosen, this, [this] { searching_.AskedChanged(); });
  connect(sort_, &SortPanel::SortRequested, this,
          [this](SortOrder order) { Do("Sort", [this, order] { searching_.Sort(order); }); });
  connect(lists_, &ListsPanel::ListClicked, this,
          [this](ListKind kind) { Do("List of characters", [this, kind] { searching_.EditList(kind); }); });
  connect(lists_, &ListsPanel::LexiconClicked, this,
          [this] { Do("Open new lexicon", [this] { files_.OpenNewLexicon(); }); });
  connect(appearance_, &AppearancePanel::Status, this, status);
}

void MainWindow::WireHistory() {
  connect(pattern_, &PatternPanel::StepRequested, this,
          [this](bool up) { Guarded(services_, this, "Search", [this, up] { history_.Step(up); }); });
  connect(pattern_, &PatternPanel::TurnedAway, this, [this] { history_.EndWalk(); });
}

void MainWindow::WireResults() {
  connect(results_, &ResultsPanel::EntrySelected, this, [this] { UpdateCommands(); });
  connect(results_, &ResultsPanel::LeaveRequested, this, [this] { FocusPattern(); });
  results_->SetCheck([this](const std::string& text, size_t caret) { return searching_.KeptOfCondition(text, caret); });
  connect(results_, &ResultsPanel::WithinChanged, this,
          [this](const std::string& text) { Do("Find within these", [&] { workbench_.Narrow(text); }); });
  connect(results_, &ResultsPanel::WithinKept, this,
          [this] { Do("Find within these", [this] { workbench_.KeepNarrowed(); }); });
  connect(results_, &ResultsPanel::Dragged, this, [this](size_t count) { workbench_.SayDragged(count); });
  connect(results_, &ResultsPanel::MenuRequested, this,
          [this](const QPoint& place) { workbench_.ShowWordMenu(place); });
  connect(results_, &ResultsPanel::EntryDoubleClicked, this,
          [this] { Do("Copy", [this] { searching_.CopyEntry(); }); });
  connect(resultOptions_, &ResultOptionsPanel::AutoSaveChosen, this,
          [this](bool on) { options_.Set(Option::AutoSave, on); });
  connect(resultOptions_, &ResultOptionsPanel::ClearRequested, this, [this] { searching_.ClearList(); });
  connect(resultOptions_, &ResultOptionsPanel::PrintRequested, this,
          [this] { Do("Print", [this] { files_.Print(); }); });
  connect(appearance_, &AppearancePanel::FontChanged, this, [this] { results_->SetListFont(appearance_->ListFont()); });
  connect(appearance_, &AppearancePanel::BoldClicked, this, [this] { options_.Toggle(Option::ListBold); });
  connect(appearance_, &AppearancePanel::ItalicClicked, this, [this] { options_.Toggle(Option::ListItalic); });
  connect(appearance_, &AppearancePanel::TextColourClicked, this,
          [this] { options_.ChooseColour(ColourElement::ResultsText, true); });
  connect(appearance_, &AppearancePanel::BackColourClicked, this,
          [this] { options_.ChooseColour(ColourElement::ResultsBack, true); });
  connect(lookup_, &LookupPanel::LookupRequested, this, [this] { Do("Definition", [this] { files_.LookUp(); }); });
  connect(lookup_, &LookupPanel::ResourceClicked, this, [this] { files_.ChangeWeblink(); });
}

// As the eye goes: the pattern, then down the left, the middle and the right column, as they are laid out.
void MainWindow::SetTabOrder() {
  QWidget* previous = nullptr;
  const auto follow = [&previous](QWidget* panel) {
    for (QWidget* control : panel->findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith("qt_")) {
        continue;
      }
      if (previous != nullptr) {
        setTabOrder(previous, control);
      }
      previous = control;
    }
  };
  for (int i = 0; i < grid_->count(); ++i) {
    QLayoutItem* cell = grid_->itemAt(i);
    if (cell->widget() != nullptr) {
      follow(cell->widget());
      continue;
    }
    for (int k = 0; k < cell->layout()->count(); ++k) {
      if (QWidget* panel = cell->layout()->itemAt(k)->widget(); panel != nullptr) {
        follow(panel);
      }
    }
  }
}

// The pattern box, the list and the status line take the room; the right column moves with it.
void MainWindow::SetWide(bool wide) {
  if (wide == wide_) {
    return;
  }
  wide_ = wide;
  const int more = PixelsOfTwips(kWideTwips);
  // No wider than the screen: what the contents need at least leaves the list the rest.
  const int room = std::max(0, screen()->availableSize().width() - minimumSizeHint().width());
  const int before = width();
  grid_->setColumnMinimumWidth(1, kListWidth + (wide ? std::min(more, room) : 0));
  centralWidget()->layout()->activate();
  layout()->invalidate();
  layout()->activate();
  if (isVisible() && !isMaximized() && !isFullScreen()) {
    resize(std::min(before + (wide ? more : -more), screen()->availableSize().width()), height());
  }
}

void MainWindow::ResizeToContents() {
  // From the inside out: a layout that was not asked yet holds old hints.
  results_->layout()->activate();
  centralWidget()->layout()->activate();
  layout()->invalidate();
  layout()->activate();
  resize(sizeHint().boundedTo(screen()->availableSize()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  End("Application terminated successfully via unload");
}

void MainWindow::End(const char* entry) {
  history_.DropWalk();
  if (!session_.stopFlag) {
    session_.stopFlag = true;
    services_.log.Write(event::kEnd, entry);
  }
  for (QWidget* other : QApplication::topLevelWidgets()) {
    if (other != this && other->isVisible()) {
      other->close();
    }
  }
  ShutDown(services_, session_);
}

// Function keys belong to the window before any of its controls sees them, and to the windows beside it; a dialog is a
// window of its own.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
    return false;
  }
  auto* widget = qobject_cast<QWidget*>(watched);
  auto* key = static_cast<QKeyEvent*>(event);
  const int number = key->key() - Qt::Key_F1 + 1;
  if (widget == nullptr || (widget->window() != this && !IsBesideTheWork(widget->window())) ||
      key->modifiers() != Qt::NoModifier || number < 1 || number > 12 || QApplication::activeModalWidget() != nullptr ||
      QApplication::activePopupWidget() != nullptr) {
    return false;
  }
  event->accept();
  history_.EndWalk();
  if (event->type() == QEvent::KeyPress && !key->isAutoRepeat()) {
    const CommandRow* row = menu_->RunKey(number);
    if (row != nullptr && row->command == Command::ChooseMode) {
      pattern_->FocusPattern();
    }
  }
  return true;
}

}  // namespace quorvane
