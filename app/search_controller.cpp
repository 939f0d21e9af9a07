#include "app/search_controller.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <algorithm>
#include <utility>

#include "app/option_table.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "results/summary.h"
#include "results/window/frm_random_disc.h"
#include "search/reading.h"
#include "search/search_texts.h"
#include "search/window/frm_change_list.h"

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
class ScanProgress : public ScanObserver {
 public:
  explicit ScanProgress(SearchView& view) : view_(view) { sincePaint_.start(); }

  void Progress(int index, int percent) override {
    if (sincePaint_.elapsed() < kPaintInterval) {
      return;
    }
    sincePaint_.restart();
    view_.ShowProgress(index / 10);
    view_.ShowStatus(ProgressStatus(percent));
    view_.ShowCaption(ProgressCaption(percent));
  }

 private:
  SearchView& view_;
  QElapsedTimer sincePaint_;
};

// From the start of a search until its follow-up is over, however it ends.
class ActiveScan {
 public:
  ActiveScan(SearchView& view, Session& session) : view_(view), session_(session) {
    view_.BeginProgress(session_.lexicon->count() / 10);
    session_.scanActive = true;
  }
  ~ActiveScan() {
    view_.EndProgress();
    view_.ShowCaption("");
    session_.scanActive = false;
  }
  ActiveScan(const ActiveScan&) = delete;
  ActiveScan& operator=(const ActiveScan&) = delete;

 private:
  SearchView& view_;
  Session& session_;
};

}  // namespace

Search SearchOf(const SearchView& view) {
  return view.Results().MadeBy().value_or(view.Asked());
}

SearchController::SearchController(SearchView& view, Session& session, Services& services, AutoSave autoSave,
                                   Recorder record)
    : view_(view), session_(session), services_(services), autoSave_(std::move(autoSave)), record_(std::move(record)) {}

std::string SearchController::Kept(const std::string& text, size_t caret) const {
  return quorvane::CheckInput({text, caret, session_.input}, view_.Lists()).text;
}

void SearchController::CheckInput(const std::string& text, size_t caret) {
  view_.ShowTimer("");
  view_.EnableLengthOrders();
  const InputAnswer answer = quorvane::CheckInput({text, caret, session_.input}, view_.Lists());
  if (answer.error) {
    services_.log.Write(event::kInputError, "Error 5 in Pattern input " + text);
    services_.door.Show(view_.Window(), "Error 5 (Invalid procedure call) in Pattern Input: " + text);
    return;
  }
  session_.input = answer.controls;
  view_.ShowText(answer.text, answer.caret);
  view_.ShowInput();
  for (const std::string& entry : answer.logTexts) {
    services_.log.Write(event::kInputError, entry);
  }
  if (!answer.statusTexts.empty()) {
    view_.ShowStatus(answer.LastStatus());
  }
  BeepTimes(services_.door, answer.beeps);
  AskedChanged();
}

std::string SearchController::KeptOfCondition(const std::string& text, size_t caret) const {
  const InputAnswer answer = quorvane::CheckInput({text, caret, {}}, view_.Lists());
  return answer.text.starts_with('~') ? "" : answer.text;
}

void SearchController::AskedChanged() {
  if (session_.options[Option::Reading]) {
    view_.ShowReading(Reading(view_.Asked()));
  }
  SearchLive();
}

void SearchController::ShowLiveCount(bool counted) {
  if (session_.options[Option::LiveResults]) {
    const auto count = static_cast<int64_t>(view_.Results().FoundCount());
    view_.ShowLive(counted ? FormatThousands(count) + " fit" : "-", false);
  }
}

void SearchController::SearchLive() {
  if (!session_.options[Option::LiveResults] || session_.scanActive || session_.lexicon == nullptr) {
    return;
  }
  const SearchRun run(view_.Asked());
  const PreparedPattern& prepared = run.Prepared();
  if (prepared.Empty() || prepared.refusal || prepared.randomCount || !session_.input.canSearch) {
    view_.ShowLive("-", view_.Results().EntryCount() > 0);
    return;
  }
  const auto entry = view_.SelectedEntry();
  const std::string selected = entry ? view_.Results().Entry(*entry) : "";
  ScanOutcome outcome;
  view_.ChangeResults([&](ResultList& results) {
    outcome = run.List(session_.lexicon, services_.random, {view_.UpperCase(), services_.screenCapacity}, results);
    if (view_.Order() != SortOrder::Alphabetic) {
      results.Sort(view_.Order(), view_.UpperCase());
    }
  });
  session_.input.saveAsLexicon = true;
  ShowLiveCount(outcome.errors.empty());
  view_.SelectEntry(entry ? view_.Results().Find(selected) : std::nullopt);
  view_.UpdateCommands();
}

void SearchController::SelectMode(WordType type) {
  SelectWordType(session_.input, type);
  view_.ShowInput();
  AskedChanged();
}

void SearchController::RefreshListCaptions() {
  for (const ListKind kind : kListKinds) {
    view_.ShowListCaption(kind, ListMenuCaption(kind, StoredList(services_.settings, kind), true));
  }
}

void SearchController::FindWords() {
  if (session_.scanActive || session_.lexicon == nullptr) {
    return;
  }
  const CStopWatch watch(services_.ticks);
  RefreshListCaptions();
  view_.ClearPosition();
  std::optional<ActiveScan> active(std::in_place, view_, session_);
  const SearchRun run(view_.Asked());
  const PreparedPattern& prepared = run.Prepared();
  if (prepared.refusal) {
    services_.door.Show(view_.Window(), prepared.refusal->boxText);
    view_.ShowStatus(prepared.refusal->statusText);
  } else if (!prepared.Empty()) {
    Scan(run);
  }
  view_.EndProgress();
  if (prepared.randomCount && IsYes(GetSetting(services_.settings, Setting::RandomDisclaimer))) {
    FrmRandomDisc notice(services_.settings, view_.Window());
    services_.door.Run(notice);
  }
  active.reset();
  ShowTime(watch);
  if (!prepared.refusal && view_.Order() != SortOrder::Alphabetic) {
    Sort(view_.Order());
  }
  if (prepared.Empty()) {
    view_.ShowStatus(std::string(FactsOf(run.Asked().mode).prompt));
  }
  view_.UpdateCommands();
  if (!prepared.refusal && !prepared.Empty()) {
    record_(run.Asked(), view_.Results().FoundCount());
  }
}

void SearchController::Scan(const SearchRun& run) {
  const Hourglass hourglass;
  view_.ShowStatus(std::string(kLookingUp));
  ScanProgress progress(view_);
  ScanOutcome outcome;
  view_.ChangeResults([&](ResultList& results) {
    outcome =
        run.List(session_.lexicon, services_.random, {view_.UpperCase(), services_.screenCapacity}, results, &progress);
  });
  session_.input.saveAsLexicon = !run.Prepared().randomCount;
  ShowLiveCount(!run.Prepared().randomCount && outcome.errors.empty());
  view_.UpdateCommands();
  ReportScan(outcome);
  view_.ShowCaption("");
}

// A scan that failed or was cut off says so; any other ends with its summary.
void SearchController::ReportScan(const ScanOutcome& outcome) {
  const auto report = [this](const ScanReport& texts) {
    services_.door.Show(view_.Window(), texts.boxText);
    view_.ShowStatus(texts.statusText);
    services_.log.Write(texts.logCode, texts.logText);
  };
  for (const ScanError& error : outcome.errors) {
    report(ReportOf(error));
  }
  if (outcome.truncated) {
    const ResultList& results = view_.Results();
    const std::string last = outcome.listed == 0 ? "" : results.Entry(outcome.listed - 1);
    report(TruncationReport(outcome.listed, results.FoundCount(), last));
  } else if (outcome.errors.empty()) {
    ShowSummary();
  }
}

void SearchController::ShowTime(const CStopWatch& watch) {
  if (session_.options[Option::Timer]) {
    view_.ShowTimer(TimeText(watch.ElapsedOrLongest()));
  }
}

void SearchController::ShowSummary() {
  const size_t count = view_.Results().FoundCount();
  const Search said = SearchOf(view_);
  const std::string summary = SummaryStatus(count, said);
  view_.ShowStatus(summary);
  services_.log.Write(event::kWords, SummaryLog(count, said));
  if (session_.options[Option::AutoSave] && autoSave_()) {
    view_.ShowStatus(summary);
  }
}

void SearchController::Sort(SortOrder order) {
  const CStopWatch watch(services_.ticks);
  const Hourglass hourglass;
  if (view_.Asked().text.empty()) {
    return;
  }
  view_.ClearPosition();
  const SortOrderRow& row = RowOf(order);
  if (!row.announcement.empty()) {
    view_.ShowStatus(std::string(row.announcement), true);
  }
  view_.ShowStatus(std::string(row.status));
  view_.ChangeResults([&](ResultList& results) { results.Sort(order, view_.UpperCase()); });
  ShowTime(watch);
  ShowSummary();
}

void SearchController::ClearList() {
  view_.ChangeResults([](ResultList& results) { results.Clear(); });
  view_.ClearPosition();
  ShowLiveCount(false);
  view_.UpdateCommands();
  view_.FocusPattern();
  view_.ShowStatus("Word list cleared", true);
}

void SearchController::CopyEntry() {
  const auto selected = view_.SelectedEntry();
  if (!selected) {
    return;
  }
  QClipboard* clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(FromBytes(view_.Results().Entry(*selected)));
  services_.door.Beep();
}

void SearchController::EditList(ListKind kind) {
  const std::string before = StoredList(services_.settings, kind);
  FrmChangeList dialog(kind, services_.settings, services_.log, services_.door, view_.Window());
  services_.door.Run(dialog);
  const std::string after = StoredList(services_.settings, kind);
  view_.ShowList(kind, after);
  view_.ShowListCaption(kind, ListMenuCaption(kind, after, false));
  view_.ShowStatus(ListStatusText(kind, after, after != before));
  AskedChanged();
}

}  // namespace quorvane
