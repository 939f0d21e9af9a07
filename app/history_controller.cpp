#include "app/history_controller.h"

#include <ctime>
#include <utility>

#include "app/file_controller.h"
#include "app/guard.h"
#include "app/search_controller.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "results/summary.h"
#include "search/window/frm_change_list.h"
#include "search/window/frm_searches.h"

namespace quorvane {
namespace {

// "all 12 searches that are kept"
std::string CountedSearches(size_t count) {
  return count == 1 ? "the search that is kept"
                    : "all " + FormatThousands(static_cast<int64_t>(count)) + " searches that are kept";
}

}  // namespace

HistoryController::HistoryController(HistoryView& view, Session& session, Services& services, SearchController& search,
                                     FileController& files)
    : view_(view),
      session_(session),
      services_(services),
      search_(search),
      files_(files),
      path_(JoinPath(services.programDirectory, kHistoryName)) {}

void HistoryController::Keep(bool on) {
  EndWalk();
  keeping_ = on;
  if (!on) {
    history_ = {};
    read_ = false;
    if (searches_ != nullptr) {
      searches_->close();
    }
  }
}

std::optional<std::string> HistoryController::SwitchKeeping(bool on) {
  std::optional<std::string> said;
  if (!on) {
    Read();
    const size_t kept = history_.Distinct().size();
    Question question;
    question.text = FromText("Searches are no longer kept. Forget " + CountedSearches(kept) + ", too?");
    question.cancel = true;
    if (kept > 0 && services_.door.Ask(view_.Window(), question) == Answer::Ok) {
      const auto failure = history_.ForgetAll();
      said = failure ? "The searches can't be forgotten: " + failure->Text()
                     : "Searches are not kept, and those that were are forgotten.";
    }
  }
  Keep(on);
  return said;
}

void HistoryController::ReadAtStart() {
  if (keeping_ && !read_) {
    Read();
  }
}

void HistoryController::Read() {
  const HistoryRead read = history_.Load(path_);
  if (!std::exchange(read_, true) && !read.error) {
    history_.Tidy();  // What can't be rewritten is read as it is.
  }
  if (const std::string text = read.Text(); std::exchange(unread_, text) != text && !text.empty()) {
    view_.ShowStatus(text);
  }
}

void HistoryController::Tell(const std::string& what, const std::optional<FileError>& failure) {
  if (!failure) {
    unwritten_.clear();
  } else if (!unread_.ends_with(failure->Text()) && !unwritten_.ends_with(failure->Text())) {
    unwritten_ = what + " " + failure->Text();
    view_.ShowStatus(unwritten_);
  }
}

void HistoryController::Record(const Search& search, size_t found) {
  if (!keeping_) {
    return;
  }
  HistoryEntry entry;
  entry.search = search;
  entry.lexicon = GetSetting(services_.settings, Setting::LexiconFile);
  entry.order = RowOf(view_.Order()).option;
  entry.upperCase = view_.UpperCase();
  entry.count = static_cast<int64_t>(found);
  std::tm now = services_.clock();
  now.tm_isdst = -1;
  entry.time = LocalTimeText(std::mktime(&now));
  ReadAtStart();
  Tell("The search can't be kept:", history_.Append(std::move(entry)));
  Refresh();
}

void HistoryController::Step(bool older) {
  if (!walk_.Begun()) {
    if (!older || !keeping_) {
      return;
    }
    Read();
    walk_.Begin(history_.Entries(), view_.Controls());
  }
  if (const auto state = older ? walk_.Older() : walk_.Newer()) {
    session_.walkedLists = state->lists;
    view_.ShowControls(*state);
  }
}

void HistoryController::EndWalk() {
  if (const auto before = walk_.End()) {
    Store(*before, view_.Controls());
  }
}

void HistoryController::Store(const ControlState& before, const ControlState& now) {
  const SettingsBatch batch(services_.settings);
  for (const ListKind kind : kListKinds) {
    if (const std::string& list = now.lists.Of(kind); list != before.lists.Of(kind)) {
      StoreList(kind, list, services_.settings, services_.log);
      view_.ShowListCaption(kind, ListMenuCaption(kind, list, false));
    }
  }
  session_.walkedLists.reset();
  if (now.lengths.min != before.lengths.min) {
    SaveSetting(services_.settings, Setting::MinLength, std::to_string(now.lengths.min));
  }
  if (now.lengths.max != before.lengths.max) {
    SaveSetting(services_.settings, Setting::MaxLength, std::to_string(now.lengths.max));
  }
}

void HistoryController::ShowSearches() {
  EndWalk();
  if (searches_ == nullptr) {
    auto* window = new FrmSearches(view_.Window());
    QObject::connect(window, &FrmSearches::SearchRequested, window, [this](const HistoryEntry& entry) { Run(entry); });
    QObject::connect(window, &FrmSearches::NameRequested, window,
                     [this](const HistoryEntry& entry, const std::string& name) { Name(entry, name); });
    QObject::connect(window, &FrmSearches::ForgetRequested, window, [this](const HistoryEntry& entry) {
      Tell("The search can't be forgotten:", history_.Forget(entry));
      Refresh();
    });
    QObject::connect(window, &FrmSearches::ForgetAllRequested, window, [this] { ForgetAll(); });
    searches_ = window;
  }
  Read();
  Refresh();
  searches_->show();
  searches_->raise();
  searches_->activateWindow();
}

void HistoryController::Refresh() {
  if (searches_ != nullptr) {
    searches_->ShowEntries(history_.Distinct());
    searches_->Say(unread_.empty() ? unwritten_ : unread_);
  }
}

void HistoryController::Run(const HistoryEntry& entry) {
  Guarded(services_, view_.Window(), "Search", [&] { SearchFor(entry); });
}

void HistoryController::SearchFor(const HistoryEntry& entry) {
  EndWalk();
  const ControlState before = view_.Controls();
  const auto state = StateOf(entry.search, before);
  if (!state) {
    view_.ShowStatus("The window has no controls for this search; quorvane-cli find --named searches it.");
    return;
  }
  const auto problem = files_.SwitchLexicon(entry.lexicon);
  session_.walkedLists = state->lists;
  view_.ShowControls(*state);
  Store(before, *state);
  search_.FindWords();
  if (problem) {
    const std::string used = GetSetting(services_.settings, Setting::LexiconFile);
    const std::string summary = SummaryStatus(view_.Results().FoundCount(), entry.search);
    view_.ShowStatus("The lexicon " + entry.lexicon + " " + *problem + "; in " + used + ": " + summary);
  }
}

void HistoryController::Name(const HistoryEntry& entry, const std::string& name) {
  const HistoryEntry* other = history_.Named(name);
  if (other != nullptr && (SearchKey(other->search) != SearchKey(entry.search) || other->lexicon != entry.lexicon)) {
    Refresh();
    searches_->Say("Another search has the name '" + name + "'.");
    return;
  }
  Tell("The search can't be named:", history_.Name(entry, name));
  Refresh();
}

void HistoryController::ForgetAll() {
  const size_t kept = history_.Distinct().size();
  if (kept == 0) {
    return;
  }
  Question question;
  question.text = FromText("Forget " + CountedSearches(kept) + "?");
  question.cancel = true;
  if (services_.door.Ask(searches_, question) == Answer::Ok) {
    Tell("The searches can't be forgotten:", history_.ForgetAll());
    Refresh();
  }
}

}  // namespace quorvane
