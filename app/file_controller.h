// Files, printing, looking up, leaving.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/services.h"
#include "app/session.h"
#include "app/view.h"
#include "base/file.h"
#include "results/result_list.h"
#include "results/save_target.h"

namespace quorvane {

// What these commands need of the window.
class FileView : public virtual View {
 public:
  virtual const ResultList& Results() const = 0;
  // What is said of the list.
  virtual Search Said() const = 0;
  virtual SortOrder Order() const = 0;
  // The word of the selected entry.
  virtual std::optional<std::string> SelectedWord() const = 0;
  virtual void ShowLexicon(const std::string& name) = 0;
  virtual void ShowResource(const std::string& setting) = 0;
  // Ends the program as its close button does.
  virtual void Leave() = 0;
};

class FileController {
 public:
  // All outlive the controller.
  FileController(FileView& view, Session& session, Services& services);

  void OpenNewLexicon();
  // Makes a lexicon of a word list: of `path`, or of one that is chosen.
  void ImportList(const std::string& path = {});
  // Files that were dropped on the window: a lexicon of the program's directory is opened, another file imported.
  void TakeDropped(const std::vector<std::string>& paths);
  // Loads `path`; false when the lexicon is unusable and the program has ended.
  bool LoadLexiconFile(const std::string& path);
  // Takes another lexicon, as it is named in the settings, without a question; "" is the one in use. Why not, as the
  // end of a sentence about it; then the one in use stays.
  std::optional<std::string> SwitchLexicon(const std::string& name);
  void ChangeSaveName();
  void SaveList();
  // Without being asked: true when the list was written.
  bool AutoSave() { return WriteResults(true); }
  // Why no words may be written there; nothing when they may.
  std::optional<std::string> WhyNotWriteTo(const std::string& path) const;
  void SaveAsLexicon();
  void Print();
  void SetUpPrinter();
  void ChangeWeblink();
  void LookUp();
  void Exit();

 private:
  // Says that the session's lexicon is another one.
  void LexiconOpened(const std::string& name);
  bool WriteResults(bool automatic);
  // The files that results never replace.
  std::vector<ProtectedFile> ProtectedFiles() const;
  // Opens a lexicon of the program's directory; one that is unusable is a message, and the lexicon in use stays.
  void OpenAside(const std::string& name);
  LoadResult Load(const std::string& path);
  // Makes a lexicon that was loaded the one in use from now on.
  void Introduce(const std::string& name);
  // Null when the file is unusable, which has been said.
  std::shared_ptr<const Lexicon> ReadLexicon(const std::string& path);
  void ReportSaveFailure(const std::string& text, bool automatic);
  void ReportErrors(const std::string& text);

  FileView& view_;
  Session& session_;
  Services& services_;
};

}  // namespace quorvane
