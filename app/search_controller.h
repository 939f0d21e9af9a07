// Searching: what is typed, searched, sorted, cleared, copied.
#pragma once

#include <functional>
#include <optional>

#include "app/services.h"
#include "app/session.h"
#include "app/view.h"
#include "results/search_run.h"

namespace quorvane {

// What searching needs of the window.
class SearchView : public virtual View {
 public:
  // What the controls ask for.
  virtual Search Asked() const = 0;
  // The lists that count now.
  virtual CharacterLists Lists() const = 0;
  virtual void FocusPattern() = 0;
  // Puts what a check left of the text into the box.
  virtual void ShowText(const std::string& text, size_t caret) = 0;
  // Shows the controls of the session's input as they are.
  virtual void ShowInput() = 0;

  virtual SortOrder Order() const = 0;
  virtual bool UpperCase() const = 0;
  virtual void EnableLengthOrders() = 0;

  virtual const ResultList& Results() const = 0;
  // Every change of the results goes through here, so that the list shows it.
  virtual void ChangeResults(const std::function<void(ResultList&)>& change) = 0;
  // The entry that is selected, from 0.
  virtual std::optional<size_t> SelectedEntry() const = 0;
  virtual void ClearPosition() = 0;
  // The entries that are selected and in sight after a change of the list; nothing selects none.
  virtual void SelectEntry(std::optional<size_t> entry) = 0;
  // What is searched, in words; empty for nothing said.
  virtual void ShowReading(const std::string& text) = 0;
  // What results while typing say of the text: how many words fit, or "-" over a list that is not the text's.
  virtual void ShowLive(const std::string& text, bool stale) = 0;

  virtual void ShowList(ListKind kind, const std::string& list) = 0;
  virtual void ShowListCaption(ListKind kind, const std::string& caption) = 0;
  // The window's caption; empty for its own.
  virtual void ShowCaption(const std::string& caption) = 0;
};

class SearchController {
 public:
  // Saves the list without being asked; true when it was written.
  using AutoSave = std::function<bool()>;
  // Is told of each search that was asked for, behind it, with the number of words found.
  using Recorder = std::function<void(const Search& search, size_t found)>;

  // All outlive the controller.
  SearchController(SearchView& view, Session& session, Services& services, AutoSave autoSave, Recorder record);

  // A text was typed, with the caret there.
  void CheckInput(const std::string& text, size_t caret);
  // What the check leaves of a pattern that is a condition.
  std::string KeptOfCondition(const std::string& text, size_t caret) const;
  // What the check would leave of it.
  std::string Kept(const std::string& text, size_t caret) const;
  void SelectMode(WordType type);
  void FindWords();
  void Sort(SortOrder order);
  void ClearList();
  void CopyEntry();
  void EditList(ListKind kind);
  void RefreshListCaptions();
  // Something that is searched for has changed: with results while typing on, shows what fits now, and nothing else.
  void AskedChanged();

 private:
  void SearchLive();
  void Scan(const SearchRun& run);
  void ReportScan(const ScanOutcome& outcome);
  void ShowTime(const CStopWatch& watch);
  void ShowSummary();
  void ShowLiveCount(bool counted);

  SearchView& view_;
  Session& session_;
  Services& services_;
  AutoSave autoSave_;
  Recorder record_;
};

// What is said of the list is said of the search that made it; of an empty list, of what is asked now.
Search SearchOf(const SearchView& view);

}  // namespace quorvane
