// The main window: lays out the panels, owns the state of the run, shows what the commands say and wires both.
#pragma once

#include <QMainWindow>
#include <map>
#include <string>

#include "app/command_table.h"
#include "app/commands.h"
#include "app/services.h"
#include "app/session.h"
#include "results/window/results_panel.h"

class QLabel;
class QProgressBar;
class QSplitter;

namespace quorvane {

class AppearancePanel;
class LengthPanel;
class ListsPanel;
class LookupPanel;
class PatternPanel;
class ResultOptionsPanel;
class SortPanel;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `services` outlives the window.
  explicit MainWindow(Services& services);
  ~MainWindow() override;

  Session session;
  PatternPanel* pattern = nullptr;
  LengthPanel* lengths = nullptr;
  SortPanel* sort = nullptr;
  AppearancePanel* appearance = nullptr;
  ResultsPanel* results = nullptr;
  ResultOptionsPanel* resultOptions = nullptr;
  ListsPanel* lists = nullptr;
  LookupPanel* lookup = nullptr;

  Commands& Command() { return commands_; }
  QAction* Item(const char* name) const;

  // The one way to write the status line: painted at once.
  void ShowStatus(const std::string& text, bool bold = false);
  void ShowTimer(const std::string& text);
  // Progress of a scan: a position out of a whole.
  void BeginProgress(int whole);
  void ShowProgress(int position);
  void EndProgress();

  // The state of the input check on every control that depends on it.
  void ShowInput();
  // What may be done with the results as they are.
  void UpdateResultCommands();
  void ShowListCaption(ListKind kind, bool wideScrabbleGap);
  // The size that the contents ask for, as far as the screen goes.
  void ResizeToContents();
  void SetWide(bool wide);
  QString Title() const;

  // The labels whose colours can be chosen.
  QLabel* StatusLabel() const { return lblStatus_; }
  QLabel* TimerLabel() const { return lblTimer_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The entry, unless a command has written one; closes what is open and shuts the program down.
  void End(const char* entry);
  void MakePanels();
  void LayOut();
  void MakeMenus();
  void WirePanels();
  void WireResults();
  void SetTabOrder();

  Services& services_;
  Commands commands_;
  std::map<std::string, QAction*, std::less<>> items_;
  QLabel* lblStatus_ = nullptr;
  QLabel* lblTimer_ = nullptr;
  QProgressBar* pbBar_ = nullptr;
  bool wide_ = false;
};

}  // namespace quorvane
