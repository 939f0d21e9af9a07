#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <algorithm>

#include "app/commands.h"
#include "app/main_window.h"
#include "base/window/qt_text.h"
#include "results/sorting.h"
#include "results/window/frm_random_disc.h"
#include "results/window/result_options_panel.h"
#include "results/window/sort_panel.h"
#include "search/search_texts.h"
#include "search/window/frm_change_list.h"
#include "search/window/length_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"
#include "settings/settings_table.h"

#include <QAction>

namespace quorvane {
namespace {

// A paste can hold many refusals; so many beeps say the same as more.
constexpr int kMostBeeps = 20;
constexpr int kPaintInterval = 16;  // Milliseconds: no faster than the display.

void BeepTimes(Door& door, int times) {
  for (int i = 0; i < std::min(times, kMostBeeps); ++i) {
    door.Beep();
  }
}

// Shows the progress of a scan, at most once in an interval of the display.
class ProgressView : public ScanObserver {
 public:
  explicit ProgressView(MainWindow& window) : window_(window) { sincePaint_.start(); }

  void Progress(int index, int percent) override {
    if (sincePaint_.elapsed() < kPaintInterval) {
      return;
    }
    sincePaint_.restart();
    window_.ShowProgress(index / 10);
    window_.ShowStatus(ProgressStatus(percent));
    window_.setWindowTitle(FromText(ProgressCaption(percent)));
  }

 private:
  MainWindow& window_;
  QElapsedTimer sincePaint_;
};

}  // namespace

Commands::Commands(MainWindow& window, Services& services) : window_(window), services_(services) {}

void Commands::CheckInput() {
  Session& session = window_.session;
  window_.ShowTimer("");
  window_.sort->EnableLengthOrders();
  const std::string typed = window_.pattern->Text();
  session.input.text = typed;
  session.input.caret = window_.pattern->Caret();
  session.lists = StoredLists(services_.settings);
  const InputAnswer answer = quorvane::CheckInput(session.input, session.lists);
  if (answer.error) {
    services_.log.Write(event::kInputError, "Error 5 in Pattern input " + typed);
    services_.door.Show(&window_, "Error 5 (Invalid procedure call) in Pattern Input: " + typed);
    return;
  }
  session.input = {answer.text, answer.caret, answer.controls};
  window_.ShowInput();
  for (const std::string& text : answer.logTexts) {
    services_.log.Write(event::kInputError, text);
  }
  if (!answer.statusTexts.empty()) {
    window_.ShowStatus(answer.LastStatus());
  }
  BeepTimes(services_.door, answer.beeps);
}

void Commands::SelectMode(WordType type) {
  SelectWordType(window_.session.input.controls, type);
  window_.session.input.caret = window_.pattern->Caret();
  window_.ShowInput();
}

bool Commands::CanChooseAnagram() const {
  return window_.pattern->ModeEnabled(WordType::Anagram);
}

void Commands::RefreshListCaptions() {
  Session& session = window_.session;
  session.lists = StoredLists(services_.settings);
  for (const ListKind kind : kListKinds) {
    window_.ShowListCaption(kind, true);
  }
}

LengthRange Commands::Range() const {
  return {window_.lengths->AnyLength(), window_.lengths->Min(), window_.lengths->Max()};
}

void Commands::FindWords() {
  Session& session = window_.session;
  if (session.scanActive || session.lexicon == nullptr) {
    return;
  }
  const CStopWatch watch(services_.ticks);
  RefreshListCaptions();
  window_.BeginProgress(session.lexicon->count() / 10);
  window_.results->ClearPosition();
  session.scanActive = true;
  const std::string typed = window_.pattern->Text();
  const PreparedPattern prepared = PreparePattern(typed, session.input.controls.selected);
  if (prepared.refusal) {
    services_.door.Show(&window_, prepared.refusal->boxText);
    window_.ShowStatus(prepared.refusal->statusText);
  } else if (!prepared.Empty()) {
    PrepareAndScan(typed);
  }
  window_.EndProgress();
  if (typed.starts_with('~') && IsYes(GetSetting(services_.settings, Setting::RandomDisclaimer))) {
    FrmRandomDisc notice(services_.settings, &window_);
    services_.door.Run(notice);
  }
  session.scanActive = false;
  ShowTime(watch);
  if (!prepared.refusal && window_.sort->Order() != SortOrder::Alphabetic) {
    Sort(window_.sort->Order());
  }
  if (prepared.Empty()) {
    window_.ShowStatus(std::string(FactsOf(session.input.controls.selected).prompt));
  }
  window_.UpdateResultCommands();
}

void Commands::PrepareAndScan(const std::string& typed) {
  Session& session = window_.session;
  const Hourglass hourglass;
  window_.ShowStatus(std::string(kLookingUp));
  ScanRequest request;
  request.prepared = PreparePattern(typed, session.input.controls.selected);
  request.lists = session.lists;
  const LengthRange range = Range();
  if (!range.any) {
    request.minLength = range.min;
    request.maxLength = range.max;
  }
  request.palindromes = session.input.controls.selected == WordType::Palindrome;
  ProgressView progress(window_);
  ScanOutcome outcome;
  window_.results->ChangeResults([&](ResultList& results) {
    outcome = PerformScan(*session.lexicon, request, results.BeginSearch(), services_.random, &progress,
                          services_.screenCapacity, session.listTruncated);
    results.EndSearch(session.lexicon, outcome, window_.resultOptions->UpperCase());
  });
  session.listTruncated = outcome.truncated;
  session.saveAsLexiconAllowed = !typed.starts_with('~');
  session.input.controls.saveAsLexicon = session.saveAsLexiconAllowed;
  window_.UpdateResultCommands();
  ReportScan(outcome);
  window_.setWindowTitle(window_.Title());
}

// A scan that failed or was cut off says so; any other ends with its summary.
void Commands::ReportScan(const ScanOutcome& outcome) {
  const auto report = [this](const ScanReport& texts) {
    services_.door.Show(&window_, texts.boxText);
    window_.ShowStatus(texts.statusText);
    services_.log.Write(texts.logCode, texts.logText);
  };
  for (const ScanError& error : outcome.errors) {
    report(ReportOf(error));
  }
  if (outcome.truncated) {
    const ResultList& results = window_.results->Results();
    const std::string last = outcome.listed == 0 ? "" : results.Entry(outcome.listed - 1);
    report(TruncationReport(outcome.listed, results.FoundCount(), last));
  } else if (outcome.errors.empty()) {
    ShowSummary();
  }
}

void Commands::ShowTime(const CStopWatch& watch) {
  if (window_.Item("menTimer")->isChecked()) {
    window_.ShowTimer(TimeText(watch.ElapsedOrLongest()));
  }
}

void Commands::ShowSummary() {
  const auto count = static_cast<int64_t>(window_.results->Results().FoundCount());
  const std::string& noun = window_.session.input.controls.noun;
  const std::string summary = SummaryStatus(count, noun, Range());
  window_.ShowStatus(summary);
  services_.log.Write(event::kWords, SummaryLog(count, noun, window_.pattern->Text(), Range()));
  if (window_.resultOptions->AutoSave() && WriteResults(true)) {
    window_.ShowStatus(summary);
  }
}

void Commands::Sort(SortOrder order) {
  const CStopWatch watch(services_.ticks);
  const Hourglass hourglass;
  if (window_.pattern->Text().empty()) {
    return;
  }
  window_.results->ClearPosition();
  if (order == SortOrder::LongestFirst) {
    window_.ShowStatus(std::string(kDescendingAnnouncement), true);
  }
  window_.ShowStatus(std::string(order == SortOrder::Alphabetic      ? kSortingAlphabetic
                                 : order == SortOrder::ShortestFirst ? kSortingShortest
                                                                     : kSortingLongest));
  window_.results->ChangeResults([&](ResultList& results) { results.Sort(order, window_.resultOptions->UpperCase()); });
  ShowTime(watch);
  ShowSummary();
}

void Commands::ClearList() {
  window_.results->ChangeResults([](ResultList& results) { results.Clear(); });
  window_.results->ClearPosition();
  window_.session.saveAsLexiconAllowed = false;
  window_.UpdateResultCommands();
  window_.pattern->FocusPattern();
  window_.ShowStatus("Word list cleared", true);
}

void Commands::CopyEntry() {
  const auto selected = window_.results->Selected();
  if (!selected) {
    return;
  }
  QClipboard* clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(FromBytes(window_.results->Results().Entry(*selected)));
  services_.door.Beep();
}

void Commands::EditList(ListKind kind) {
  Session& session = window_.session;
  const std::string before = StoredList(services_.settings, kind);
  FrmChangeList dialog(kind, services_.settings, services_.log, services_.door, &window_);
  services_.door.Run(dialog);
  const std::string after = StoredList(services_.settings, kind);
  session.lists.Of(kind) = after;
  window_.lists->ShowList(kind, after);
  window_.ShowListCaption(kind, false);
  window_.ShowStatus(ListStatusText(kind, after, after != before));
}

}  // namespace quorvane
