// What goes beyond the plain search: words out of the list, ways by the keys, windows beside the work.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>
#include <string>

#include "app/services.h"
#include "app/session.h"
#include "app/view.h"
#include "results/result_list.h"

class QPoint;

namespace quorvane {

class FileController;
class SearchController;

// What these commands need of the window.
class WorkbenchView : public virtual View {
 public:
  virtual const ResultList& Results() const = 0;
  // What is said of the list.
  virtual Search Said() const = 0;
  virtual SortOrder Order() const = 0;
  virtual bool UpperCase() const = 0;
  virtual std::optional<std::string> SelectedWord() const = 0;
  // What is copied, exported and dragged: the words as they are shown.
  virtual WordSequence ShownWords() const = 0;
  virtual void FocusPattern() = 0;
  virtual void FocusList() = 0;
  // Copies the words that are selected.
  virtual void CopySelection() = 0;
  // As if it were typed over what the box holds: the box's undo brings that back.
  virtual void TypeText(const std::string& text) = 0;
  virtual void TypeCharacter(char character) = 0;
  // Every change of the results goes through here, so that the list shows it.
  virtual void ChangeResults(const std::function<void(ResultList&)>& change) = 0;
  virtual std::optional<size_t> SelectedEntry() const = 0;
  virtual void SelectEntry(std::optional<size_t> entry) = 0;
  // The line that narrows the list: opened, closed and emptied, what it says.
  virtual void OpenWithin() = 0;
  virtual void CloseWithin() = 0;
  virtual void ShowWithin(const std::string& text) = 0;
  // Opens or closes the row of conditions.
  virtual void ToggleConditions() = 0;
};

class WorkbenchController {
 public:
  // All outlive the controller.
  WorkbenchController(WorkbenchView& view, Session& session, Services& services, SearchController& search,
                      FileController& files);

  void GoToList() { view_.FocusList(); }
  void GoToPattern() { view_.FocusPattern(); }
  void ToggleConditions() { view_.ToggleConditions(); }
  // Opens the line that narrows the list.
  void FindWithin();
  // Shows the found words that fit the pattern, too: all for an empty one and one that can't be searched.
  void Narrow(const std::string& pattern);
  // Makes the words that are shown the list.
  void KeepNarrowed();
  void CopyAll();
  // So many words were dragged elsewhere.
  void SayDragged(size_t count);
  // The search as a command line, to the clipboard.
  void CopyAsCommand();
  void Export();
  // The menu of the selected word, at a place on the screen.
  void ShowWordMenu(const QPoint& place);
  // Searches for the anagrams of the selected word, and for the words that hold it, as a person would.
  void FindAnagrams();
  void FindHolding();
  void ShowWildcardsBeside();

 private:
  // "12", or of a narrowed list "12 of 193".
  std::string ShownCount() const;

  WorkbenchView& view_;
  Session& session_;
  Services& services_;
  SearchController& search_;
  FileController& files_;
  QPointer<QDialog> wildcards_;
};

}  // namespace quorvane
