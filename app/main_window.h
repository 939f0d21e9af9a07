// The main window: lays out the panels, owns the state of the run, and is what its controllers see of it.
#pragma once

#include <QMainWindow>
#include <memory>

#include "app/command_menu.h"
#include "app/file_controller.h"
#include "app/history_controller.h"
#include "app/option_controller.h"
#include "app/search_controller.h"
#include "app/services.h"
#include "app/session.h"
#include "app/start/start_up.h"
#include "app/workbench_controller.h"

class QGridLayout;
class QLabel;
class QProgressBar;

namespace quorvane {

class AppearancePanel;
class ConditionsPanel;
class LengthPanel;
class ListsPanel;
class LookupPanel;
class PatternPanel;
class ResultOptionsPanel;
class ResultsPanel;
class SortPanel;

class MainWindow : public QMainWindow,
                   private SearchView,
                   private FileView,
                   private OptionView,
                   private StartUpView,
                   private WorkbenchView,
                   private HistoryView {
  Q_OBJECT

 public:
  // `services` outlives the window.
  explicit MainWindow(Services& services);
  ~MainWindow() override;

  // Brings the shown window to its ready state. False when the program ended on the way.
  bool Start();
  // The size that the contents ask for, as far as the screen goes.
  void ResizeToContents();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // View
  QWidget* Window() override { return this; }
  void ShowStatus(const std::string& text, bool bold = false) override;
  void ShowTimer(const std::string& text) override;
  void BeginProgress(int whole) override;
  void ShowProgress(int position) override;
  void EndProgress() override;
  void UpdateCommands() override;
  // SearchView
  Search Asked() const override;
  CharacterLists Lists() const override;
  void FocusPattern() override;
  void ShowText(const std::string& text, size_t caret) override;
  void ShowInput() override;
  SortOrder Order() const override;
  bool UpperCase() const override;
  void EnableLengthOrders() override;
  const ResultList& Results() const override;
  void ChangeResults(const std::function<void(ResultList&)>& change) override;
  std::optional<size_t> SelectedEntry() const override;
  void ClearPosition() override;
  void SelectEntry(std::optional<size_t> entry) override;
  void ShowLive(const std::string& text, bool stale) override;
  void ShowReading(const std::string& text) override;
  void ShowList(ListKind kind, const std::string& list) override;
  void ShowListCaption(ListKind kind, const std::string& caption) override;
  void ShowCaption(const std::string& caption) override;
  // FileView
  Search Said() const override { return SearchOf(*this); }
  std::optional<std::string> SelectedWord() const override;
  void ShowLexicon(const std::string& name) override;
  void ShowResource(const std::string& setting) override;
  void Leave() override { close(); }
  // OptionView
  void SetAutoSave(bool on) override;
  void SetListRegionTwips(int height) override;
  void SetListBold(bool on) override;
  void SetListItalic(bool on) override;
  void SetWide(bool on) override;
  void SetLiveResults(bool on) override;
  void SetReading(bool on) override;
  void KeepHistory(bool on) override { history_.Keep(on); }
  std::optional<std::string> SwitchHistory(bool on) override { return history_.SwitchKeeping(on); }
  ColourScheme& Colours() override { return colours_; }
  // StartUpView
  void SelectOrder(SortOrder order) override;
  void SetLengths(int min, int max) override;
  void SelectAnyLength() override;
  void SetFixedWidth(bool fixed) override;

  // Carries out what was asked for; short memory ends it with a message.
  void Do(std::string_view tried, const std::function<void()>& command);
  // WorkbenchView
  WordSequence ShownWords() const override;
  void FocusList() override;
  void CopySelection() override;
  void TypeText(const std::string& text) override;
  void TypeCharacter(char character) override;
  void ToggleConditions() override;
  void OpenWithin() override;
  void CloseWithin() override;
  void ShowWithin(const std::string& text) override;

  // HistoryView
  ControlState Controls() const override;
  void ShowControls(const ControlState& state) override;

  CommandState State() const;
  // The entry, unless a command has written one; closes what is open and shuts the program down.
  void End(const char* entry);
  void MakePanels();
  void MakeStatus(QWidget* central);
  void LayOut();
  void WireSearch();
  void WireHistory();
  void WireResults();
  void SetTabOrder();

  Services& services_;
  Session session_;
  ColourScheme colours_;
  FileController files_;
  SearchController searching_;
  OptionController options_;
  WorkbenchController workbench_;
  HistoryController history_;
  std::unique_ptr<CommandMenu> menu_;

  PatternPanel* pattern_ = nullptr;
  ConditionsPanel* conditions_ = nullptr;
  LengthPanel* lengths_ = nullptr;
  SortPanel* sort_ = nullptr;
  AppearancePanel* appearance_ = nullptr;
  ResultsPanel* results_ = nullptr;
  ResultOptionsPanel* resultOptions_ = nullptr;
  ListsPanel* lists_ = nullptr;
  LookupPanel* lookup_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  QLabel* lblTimer_ = nullptr;
  QProgressBar* pbBar_ = nullptr;
  QGridLayout* grid_ = nullptr;
  bool wide_ = false;
};

}  // namespace quorvane
