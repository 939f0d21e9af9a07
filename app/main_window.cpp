#include "app/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "app/colour_scheme.h"
#include "app/start/shut_down.h"
#include "base/version.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lookup/window/lookup_panel.h"
#include "results/window/appearance_panel.h"
#include "results/window/result_options_panel.h"
#include "results/window/sort_panel.h"
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

MainWindow::MainWindow(Services& services) : services_(services), commands_(*this, services) {
  setObjectName("Quorvane");
  // The stored colours are made for a light window; what lies outside it follows the desktop.
  setPalette(LightPalette());
  menuBar()->setPalette(EveryRoleOf(QApplication::palette()));
  MakePanels();
  LayOut();
  MakeMenus();
  WirePanels();
  WireResults();
  SetTabOrder();
  qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
  qApp->removeEventFilter(this);
  if (!session.ended) {
    End("Application terminated successfully");
  }
}

void MainWindow::MakePanels() {
  auto* central = new QWidget(this);
  central->setObjectName("central");
  setCentralWidget(central);
  pattern = new PatternPanel(central);
  lengths = new LengthPanel(services_.settings, central);
  sort = new SortPanel(central);
  appearance = new AppearancePanel(services_.settings, central);
  results = new ResultsPanel(central);
  resultOptions = new ResultOptionsPanel(central);
  lists = new ListsPanel(central);
  lookup = new LookupPanel(central);
  lblStatus_ = MakeLabel("lblStatus", "", "status line", central);
  lblStatus_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  lblStatus_->setMargin(3);
  // A long text is cut at the window's edge instead of widening the window.
  lblStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  lblTimer_ = Described(MakeReadableLabel("lblTimer", "", central), "lblTimer", "Time of the last search or sort");
  lblTimer_->setMinimumWidth(lblTimer_->fontMetrics().horizontalAdvance("Time = 000.00s "));
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
  auto* grid = new QGridLayout(centralWidget());
  grid->setHorizontalSpacing(14);
  auto* left = new QVBoxLayout;
  left->setSpacing(kGroupSpacing);
  left->addWidget(lengths);
  left->addWidget(sort);
  left->addWidget(appearance);
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->addWidget(lists);
  right->addSpacing(kGroupSpacing);
  right->addWidget(resultOptions);
  right->addSpacing(kGroupSpacing);
  right->addWidget(lookup);
  right->addStretch();
  right->addWidget(lblTimer_);
  right->addWidget(pbBar_);
  grid->addWidget(pattern, 0, 0, 1, 3);
  grid->addLayout(left, 1, 0);
  grid->addWidget(results, 1, 1);
  grid->addLayout(right, 1, 2);
  grid->addWidget(lblStatus_, 2, 0, 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  grid->setColumnMinimumWidth(1, kListWidth);
  grid->setColumnMinimumWidth(2, kRightColumnWidth);
}

void MainWindow::MakeMenus() {
  std::map<Menu, QMenu*> menus;
  for (const MenuRow& row : Menus()) {
    menus[row.menu] = menuBar()->addMenu(row.caption);
    menus[row.menu]->setObjectName(row.name);
  }
  for (const CommandRow& row : CommandRows()) {
    QAction* item = row.IsSeparator() ? menus[row.menu]->addSeparator() : menus[row.menu]->addAction(row.caption);
    item->setObjectName(row.name);
    item->setCheckable(row.checkable);
    items_[row.name] = item;
    if (row.run != nullptr) {
      connect(item, &QAction::triggered, this, [this, run = row.run] { (commands_.*run)(); });
    }
  }
  connect(menus[Menu::Select], &QMenu::aboutToShow, this, [this] { commands_.RefreshListCaptions(); });
  connect(menus[Menu::Options], &QMenu::aboutToShow, this, [this] { commands_.RefreshClearLogCaption(); });
}

void MainWindow::WirePanels() {
  const auto status = [this](const std::string& text) { ShowStatus(text); };
  connect(pattern, &PatternPanel::TextChanged, this, [this] { commands_.CheckInput(); });
  connect(pattern, &PatternPanel::ModeChosen, this, [this](WordType type) { commands_.SelectMode(type); });
  connect(pattern, &PatternPanel::SearchRequested, this, [this] { commands_.FindWords(); });
  connect(pattern, &PatternPanel::ExitRequested, this, [this] { commands_.Exit(); });
  connect(lengths, &LengthPanel::Status, this, status);
  connect(sort, &SortPanel::SortRequested, this, [this](SortOrder order) { commands_.Sort(order); });
  connect(appearance, &AppearancePanel::Status, this, status);
  connect(appearance, &AppearancePanel::FontChanged, this,
          [this] { results->List()->setFont(appearance->ListFont()); });
  connect(appearance, &AppearancePanel::TextColourClicked, this,
          [this] { commands_.ChooseColour(ColourElement::ResultsText, true); });
  connect(appearance, &AppearancePanel::BackColourClicked, this,
          [this] { commands_.ChooseColour(ColourElement::ResultsBack, true); });
  connect(lists, &ListsPanel::ListClicked, this, [this](ListKind kind) { commands_.EditList(kind); });
  connect(lists, &ListsPanel::LexiconClicked, this, [this] { commands_.OpenNewLexicon(); });
}

void MainWindow::WireResults() {
  connect(results, &ResultsPanel::EntrySelected, this, [this] { UpdateResultCommands(); });
  connect(results, &ResultsPanel::EntryDoubleClicked, this, [this] { commands_.CopyEntry(); });
  connect(resultOptions, &ResultOptionsPanel::AutoSaveChosen, this, [this](bool on) { commands_.SetAutoSave(on); });
  connect(resultOptions, &ResultOptionsPanel::ClearRequested, this, [this] { commands_.ClearList(); });
  connect(resultOptions, &ResultOptionsPanel::PrintRequested, this, [this] { commands_.Print(); });
  connect(lookup, &LookupPanel::LookupRequested, this, [this] { commands_.LookUp(); });
  connect(lookup, &LookupPanel::ResourceClicked, this, [this] { commands_.ChangeWeblink(); });
}

// As the eye goes: the pattern, then down the left, the middle and the right column.
void MainWindow::SetTabOrder() {
  QWidget* previous = nullptr;
  for (QWidget* panel :
       {static_cast<QWidget*>(pattern), static_cast<QWidget*>(lengths), static_cast<QWidget*>(sort),
        static_cast<QWidget*>(appearance), static_cast<QWidget*>(results), static_cast<QWidget*>(lists),
        static_cast<QWidget*>(resultOptions), static_cast<QWidget*>(lookup)}) {
    for (QWidget* control : panel->findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith("qt_")) {
        continue;
      }
      if (previous != nullptr) {
        setTabOrder(previous, control);
      }
      previous = control;
    }
  }
}

QAction* MainWindow::Item(const char* name) const {
  return items_.find(name)->second;
}

QString MainWindow::Title() const {
  return "Quorvane  v" + FromText(VersionText()) + "  ";
}

void MainWindow::ShowStatus(const std::string& text, bool bold) {
  QFont font = lblStatus_->font();
  font.setBold(bold);
  font.setItalic(false);
  lblStatus_->setFont(font);
  lblStatus_->setText(ScreenText(text));
  lblStatus_->repaint();
}

void MainWindow::ShowTimer(const std::string& text) {
  lblTimer_->setText(FromText(text));
}

void MainWindow::BeginProgress(int whole) {
  pbBar_->setRange(0, whole);
  pbBar_->setValue(0);
  pbBar_->show();
}

void MainWindow::ShowProgress(int position) {
  pbBar_->setValue(position);
  pbBar_->repaint();
}

void MainWindow::EndProgress() {
  pbBar_->hide();
}

void MainWindow::ShowInput() {
  const InputControls& input = session.input.controls;
  pattern->ShowState(session.input);
  Item("menWordTypePalindrome")->setEnabled(input.palindrome);
  Item("menWordTypeAnagram")->setEnabled(input.anagrams);
  Item("menWordTypeAnagramExact")->setEnabled(input.anagrams);
  Item("menWordTypeWordList")->setChecked(input.selected == WordType::WordList);
  Item("menWordTypePalindrome")->setChecked(input.selected == WordType::Palindrome);
  Item("menWordTypeAnagram")->setChecked(input.selected == WordType::Anagram);
  Item("menWordTypeAnagramExact")->setChecked(input.selected == WordType::AnagramExact);
  UpdateResultCommands();
}

void MainWindow::UpdateResultCommands() {
  const auto found = static_cast<int64_t>(results->Results().FoundCount());
  Item("menFileSaveData")->setEnabled(found > 0);
  Item("menSaveAsLex")->setEnabled(found > 0 && session.saveAsLexiconAllowed && session.input.controls.saveAsLexicon);
  const bool printable =
      results->Results().EntryCount() > 0 && found <= kMostPrintable && session.printerName != "(undefined)";
  Item("menFilePrint")->setEnabled(printable);
  resultOptions->PrintButton()->setEnabled(printable);
  lookup->Button()->setEnabled(found > 0 && results->Selected().has_value());
}

void MainWindow::ShowListCaption(ListKind kind, bool wideScrabbleGap) {
  constexpr std::array kItems = {"menSelectChars", "menExcludeChars", "menScrabbleChars"};
  Item(kItems[static_cast<size_t>(kind)])
      ->setText(FromBytes(ListMenuCaption(kind, session.lists.Of(kind), wideScrabbleGap)));
}

// The pattern box, the list and the status line take the room; the right column moves with it.
void MainWindow::SetWide(bool wide) {
  if (wide == wide_) {
    return;
  }
  wide_ = wide;
  const int more = PixelsOfTwips(kWideTwips);
  auto* grid = static_cast<QGridLayout*>(centralWidget()->layout());
  grid->setColumnMinimumWidth(1, kListWidth + (wide ? more : 0));
  Item("menWideScreen")->setChecked(wide);
  if (isVisible()) {
    const int before = width();
    centralWidget()->layout()->activate();
    layout()->invalidate();
    layout()->activate();
    resize(before + (wide ? more : -more), height());
  }
}

void MainWindow::ResizeToContents() {
  // From the inside out: a layout that was not asked yet holds old hints.
  results->layout()->activate();
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
  if (!session.stopFlag) {
    session.stopFlag = true;
    services_.log.Write(event::kEnd, entry);
  }
  for (QWidget* other : QApplication::topLevelWidgets()) {
    if (other != this && other->isVisible()) {
      other->close();
    }
  }
  ShutDown(services_, session);
}

// Function keys belong to the window before any of its controls sees them; a dialog is a window of its own.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
    return false;
  }
  auto* widget = qobject_cast<QWidget*>(watched);
  auto* key = static_cast<QKeyEvent*>(event);
  const int number = key->key() - Qt::Key_F1 + 1;
  if (widget == nullptr || widget->window() != this || key->modifiers() != Qt::NoModifier || number < 1 ||
      number > 12 || QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) {
    return false;
  }
  event->accept();
  const CommandRow* row = CommandOfKey(number);
  const bool acts = row != nullptr && (row->keyAllowed == nullptr || (commands_.*row->keyAllowed)());
  if (event->type() == QEvent::KeyPress && acts && !key->isAutoRepeat()) {
    (commands_.*row->run)();
    if (row->menu == Menu::WordType) {
      pattern->FocusPattern();
    }
  }
  return true;
}

}  // namespace quorvane
