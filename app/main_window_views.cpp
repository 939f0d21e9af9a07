// What the main window's controllers see of it.

#include <QLabel>
#include <QProgressBar>

#include "app/main_window.h"
#include "base/version.h"
#include "base/window/qt_text.h"
#include "lookup/window/lookup_panel.h"
#include "results/summary.h"
#include "results/window/appearance_panel.h"
#include "results/window/result_options_panel.h"
#include "results/window/results_panel.h"
#include "results/window/sort_panel.h"
#include "search/window/conditions_panel.h"
#include "search/window/frm_change_list.h"
#include "search/window/length_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"

namespace quorvane {

void MainWindow::ShowCaption(const std::string& caption) {
  setWindowTitle(FromText(caption.empty() ? "Quorvane  v" + VersionText() + "  " : caption));
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

Search MainWindow::Asked() const {
  return {pattern_->Text(), session_.input.selected,  session_.input.noun, lengths_->Range(),
          Lists(),          conditions_->Conditions()};
}

CharacterLists MainWindow::Lists() const {
  return session_.walkedLists ? *session_.walkedLists : StoredLists(services_.settings);
}

void MainWindow::FocusPattern() {
  pattern_->FocusPattern();
}

void MainWindow::ShowText(const std::string& text, size_t caret) {
  pattern_->ShowText(text, caret);
}

void MainWindow::ShowInput() {
  pattern_->ShowControls(session_.input);
  UpdateCommands();
}

SortOrder MainWindow::Order() const {
  return sort_->Order();
}

bool MainWindow::UpperCase() const {
  return resultOptions_->UpperCase();
}

void MainWindow::EnableLengthOrders() {
  sort_->EnableLengthOrders();
}

const ResultList& MainWindow::Results() const {
  return results_->Results();
}

void MainWindow::ChangeResults(const std::function<void(ResultList&)>& change) {
  results_->ChangeResults(change);
  const auto& made = results_->Results().MadeBy();
  const bool narrowed = results_->Results().Narrowed();
  results_->SetEmptyText(narrowed ? "None of the words found fits."
                         : made   ? FromBytes(EmptyListText(*made))
                                  : QString());
}

std::optional<size_t> MainWindow::SelectedEntry() const {
  return results_->Selected();
}

std::optional<std::string> MainWindow::SelectedWord() const {
  const auto selected = results_->Selected();
  return selected ? std::optional(results_->Results().Entry(*selected)) : std::nullopt;
}

void MainWindow::ClearPosition() {
  results_->ClearPosition();
}

void MainWindow::ShowList(ListKind kind, const std::string& list) {
  lists_->ShowList(kind, list);
}

void MainWindow::ShowListCaption(ListKind kind, const std::string& caption) {
  menu_->SetCaption(Command::EditList, static_cast<int>(kind), FromBytes(caption));
}

void MainWindow::ShowLexicon(const std::string& name) {
  lists_->ShowLexicon(name);
}

void MainWindow::ShowResource(const std::string& setting) {
  lookup_->ShowResource(setting);
}

void MainWindow::SetAutoSave(bool on) {
  resultOptions_->SetAutoSave(on);
}

void MainWindow::SetListRegionTwips(int height) {
  results_->SetRegionHeight(PixelsOfTwips(height));
}

void MainWindow::SetListBold(bool on) {
  appearance_->SetBold(on);
}

void MainWindow::SetListItalic(bool on) {
  appearance_->SetItalic(on);
}

void MainWindow::SelectOrder(SortOrder order) {
  sort_->Select(order);
}

void MainWindow::SetLengths(int min, int max) {
  lengths_->SetRange(min, max);
}

void MainWindow::SelectAnyLength() {
  lengths_->SelectAnyLength();
}

void MainWindow::SetFixedWidth(bool fixed) {
  appearance_->SetFixedWidth(fixed);
}

CommandState MainWindow::State() const {
  const ResultList& results = results_->Results();
  return {session_, results.FoundCount(), results.WholeCount(), results_->Selected().has_value()};
}

void MainWindow::UpdateCommands() {
  const CommandState state = State();
  menu_->Update(state);
  resultOptions_->AllowPrint(RowOf(Command::Print).enabled(state));
  lookup_->AllowLookup(RowOf(Command::LookUp).enabled(state));
}

void MainWindow::SetLiveResults(bool on) {
  results_->ShowLive("");
  results_->SetStale(false);
  if (on) {
    results_->MakeReady(session_.lexicon ? session_.lexicon->count() : 0);
    searching_.AskedChanged();
  }
}

void MainWindow::SetReading(bool on) {
  pattern_->ShowReading({});
  if (on) {
    searching_.AskedChanged();
  }
}

void MainWindow::ShowReading(const std::string& text) {
  pattern_->ShowReading(FromBytes(text));
}

void MainWindow::SelectEntry(std::optional<size_t> entry) {
  results_->Select(entry);
}

void MainWindow::ShowLive(const std::string& text, bool stale) {
  results_->ShowLive(FromText(text));
  results_->SetStale(stale);
}

WordSequence MainWindow::ShownWords() const {
  return results_->Results().Shown();
}

void MainWindow::FocusList() {
  results_->FocusList();
}

void MainWindow::CopySelection() {
  results_->CopySelection();
}

void MainWindow::TypeText(const std::string& text) {
  pattern_->TypeOver(text);
}

void MainWindow::ToggleConditions() {
  conditions_->setVisible(conditions_->isHidden());
  if (conditions_->isHidden()) {
    pattern_->FocusPattern();
  } else {
    conditions_->FocusFirst();
  }
  searching_.AskedChanged();
}

void MainWindow::OpenWithin() {
  results_->OpenWithin();
}

void MainWindow::CloseWithin() {
  results_->CloseWithin();
}

void MainWindow::ShowWithin(const std::string& text) {
  results_->ShowWithin(FromText(text));
}

ControlState MainWindow::Controls() const {
  return {Lists(), pattern_->Text(), pattern_->Caret(), session_.input, lengths_->Range(), conditions_->Row()};
}

void MainWindow::ShowControls(const ControlState& state) {
  for (const ListKind kind : kListKinds) {
    ShowList(kind, state.lists.Of(kind));
  }
  pattern_->ReplaceText(state.text, state.caret);
  session_.input = state.input;
  lengths_->Show(state.lengths);
  conditions_->Show(state.conditions);
  EnableLengthOrders();
  ShowInput();
  searching_.AskedChanged();
}

void MainWindow::TypeCharacter(char character) {
  pattern_->TypeAtCaret(character);
}

}  // namespace quorvane
