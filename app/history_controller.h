// The searches that are kept: recorded, walked from the pattern box, shown in a window beside the work.
#pragma once

#include <QPointer>
#include <optional>
#include <string>

#include "app/services.h"
#include "app/session.h"
#include "app/view.h"
#include "results/result_list.h"
#include "results/sort_order.h"
#include "search/history_walk.h"

namespace quorvane {

class FileController;
class FrmSearches;
class SearchController;

// What the history needs of the window.
class HistoryView : public virtual View {
 public:
  virtual SortOrder Order() const = 0;
  virtual bool UpperCase() const = 0;
  virtual const ResultList& Results() const = 0;
  virtual ControlState Controls() const = 0;
  // Shows all of it, and with results while typing what fits; nothing is stored, said or searched.
  virtual void ShowControls(const ControlState& state) = 0;
  virtual void ShowListCaption(ListKind kind, const std::string& caption) = 0;
};

class HistoryController {
 public:
  // All outlive the controller.
  HistoryController(HistoryView& view, Session& session, Services& services, SearchController& search,
                    FileController& files);

  // While it is off nothing is read or written.
  void Keep(bool on);
  // The same by the user's choice: asks whether what is kept is forgotten. What became of that.
  std::optional<std::string> SwitchKeeping(bool on);
  // Reads the history and rewrites it where it is too long, unless that was done already; behind the start.
  void ReadAtStart();

  // A search that was asked for.
  void Record(const Search& search, size_t found);

  // Up and Down: shows an older search, or a newer one.
  void Step(bool older);
  // The walk is over: what differs from before is stored and logged. Nothing when there is none.
  void EndWalk();
  // The program ends: what is stored stays as it was.
  void DropWalk() { walk_.End(); }

  void ShowSearches();

 private:
  void Read();
  // What could not be done, told once.
  void Tell(const std::string& what, const std::optional<FileError>& failure);
  void Store(const ControlState& before, const ControlState& now);
  void Refresh();
  void Run(const HistoryEntry& entry);
  void SearchFor(const HistoryEntry& entry);
  void Name(const HistoryEntry& entry, const std::string& name);
  void ForgetAll();

  HistoryView& view_;
  Session& session_;
  Services& services_;
  SearchController& search_;
  FileController& files_;
  const std::string path_;
  bool keeping_ = false;
  History history_;
  HistoryWalk walk_;
  bool read_ = false;
  // The trouble that was told last: of what can't be read, and of what can't be written.
  std::string unread_;
  std::string unwritten_;
  QPointer<FrmSearches> searches_;
};

}  // namespace quorvane
