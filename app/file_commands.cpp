#include <QAction>
#include <QPushButton>

#include "app/commands.h"
#include "app/frm_amend.h"
#include "app/main_window.h"
#include "app/start/shut_down.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/load_report.h"
#include "lexicon/window/frm_lex_name.h"
#include "lexicon/window/frm_lex_problem.h"
#include "lexicon/window/frm_new_lex.h"
#include "lexicon/window/frm_wait.h"
#include "lookup/window/frm_weblink_choice.h"
#include "lookup/window/lookup_panel.h"
#include "print/window/frm_printer_setup.h"
#include "print/window/printing.h"
#include "results/window/sort_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"
#include "settings/settings_table.h"

namespace quorvane {
namespace {

// The progress bar for as long as the object lives, moved by percentages.
class MovingBar {
 public:
  explicit MovingBar(MainWindow& window) : window_(window) { window_.BeginProgress(100); }
  ~MovingBar() { window_.EndProgress(); }
  MovingBar(const MovingBar&) = delete;
  MovingBar& operator=(const MovingBar&) = delete;

  std::function<void(int)> Mover() const {
    return [this](int percent) { window_.ShowProgress(percent); };
  }

 private:
  MainWindow& window_;
};

}  // namespace

void Commands::ReportErrors(const std::string& text) {
  services_.door.Show(&window_, text);
  services_.log.Write(event::kError, text);
}

bool Commands::LoadLexiconFile(const std::string& path) {
  Session& session = window_.session;
  session.lexiconPath = path;
  const LoadResult result = [&] {
    const Hourglass hourglass;
    const MovingBar bar(window_);
    return LoadLexicon(path, kLexiconCapacity, TextSource::Read, bar.Mover());
  }();
  const LoadReport report = ReportOf(result);
  if (result.outcome == LoadOutcome::ListError) {
    FrmLexProblem problem(result, &window_);
    services_.door.Run(problem);
  } else if (result.outcome != LoadOutcome::Ok) {
    services_.door.Show(&window_, report.boxText);
  }
  if (result.outcome != LoadOutcome::Ok) {
    services_.log.Write(report.logCode, report.logText);
  }
  if (!result.Usable()) {
    session.stopFlag = true;
    ShutDown(services_, session, 1);
    return false;
  }
  session.lexicon = result.lexicon;
  return true;
}

void Commands::OpenNewLexicon() {
  const std::string current = GetSetting(services_.settings, Setting::LexiconFile);
  FrmNewLex choice(services_.programDirectory, current, &window_);
  if (services_.door.Run(choice) != QDialog::Accepted || choice.Chosen().empty()) {
    return;
  }
  const std::string& name = choice.Chosen();
  {
    FrmWait wait(&window_);
    wait.ShowNow();
    if (!LoadLexiconFile(JoinPath(services_.programDirectory, name))) {
      return;
    }
  }
  Session& session = window_.session;
  const int32_t count = session.lexicon->count();
  services_.log.Write(event::kNewLexicon, std::to_string(count) + " words defined in lexicon file '" + name + "'");
  session.lexiconSetting = name;
  session.lexiconIsDefault = name == kDefaultLexiconName;
  SaveSetting(services_.settings, Setting::LexiconFile, name);
  window_.lists->ShowLexicon(name);
  services_.door.Show(&window_, "    New lexicon file\r\n\r\n    " + name + "\r\n\r\nhas been loaded\r\nwith " +
                                    FormatThousands(count) + " words.");
}

void Commands::ChangeSaveName() {
  FrmAmend dialog(services_, &window_);
  services_.door.Run(dialog);
}

bool Commands::CanSave() const {
  return window_.Item("menFileSaveData")->isEnabled();
}

ResultsFileHeader Commands::Header() const {
  const Session& session = window_.session;
  return {window_.results->Results().FoundCount(), session.input.controls.noun, window_.pattern->Text(), session.lists};
}

WordSequence Commands::WordsInOrder() const {
  const ResultList& results = window_.results->Results();
  return window_.sort->Order() == SortOrder::Alphabetic ? results.FoundWords() : results.FoundWordsCopy();
}

bool Commands::WriteResults(bool automatic) {
  const std::string path = SaveFilePath(services_.settings, services_.programDirectory);
  SaveSetting(services_.settings, Setting::SaveFileName, path);
  const ResultsFileHeader header = Header();
  window_.ShowStatus(WritingStatus(header.count, header.noun));
  const Hourglass hourglass;
  const MovingBar bar(window_);
  const auto error =
      WriteResultsFile(ResolvePath(services_.programDirectory, path), header, WordsInOrder(), bar.Mover());
  if (error) {
    ReportSaveFailure(*error, automatic);
    return false;
  }
  window_.session.lastSaveFailure.clear();
  return true;
}

// The status line and the log say it every time; a box that autosave has shown is not shown again for the same reason.
void Commands::ReportSaveFailure(const FileError& error, bool automatic) {
  const std::string text = "The word list could not be saved to " + error.Text();
  const bool shown = automatic && window_.session.lastSaveFailure == text;
  window_.session.lastSaveFailure = text;
  if (!shown) {
    services_.door.Show(&window_, text);
  }
  window_.ShowStatus(text);
  services_.log.Write(event::kError, text);
}

void Commands::SaveList() {
  if (WriteResults(false)) {
    window_.ShowStatus("Current wordlist has been saved");
    services_.log.Write(event::kSaved, "Wordlist has been saved");
  }
}

void Commands::SaveAsLexicon() {
  FrmLexName dialog(services_.programDirectory, services_.door, &window_);
  services_.door.Run(dialog);
  const std::string& name = dialog.Name();
  if (name.empty()) {
    return;
  }
  const ResultsFileHeader header = Header();
  window_.ShowStatus(WritingStatus(header.count, header.noun));
  const std::string path = JoinPath(services_.programDirectory, name + std::string(kLexiconExtension));
  const Hourglass hourglass;
  const MovingBar bar(window_);
  if (const auto error = WriteResultsAsLexicon(path, WordsInOrder(), bar.Mover())) {
    ReportSaveFailure(*error, false);
    return;
  }
  window_.ShowStatus("Current word list has been saved as lexicon \"" + name + "\"");
  services_.log.Write(event::kSavedLexicon, "Wordlist has been saved as a new Lexicon '" + name + "'");
}

void Commands::Print() {
  const ResultList& results = window_.results->Results();
  PrintJob job{window_.session.printerName, results.EntryCount(), [&results](size_t i) { return results.Entry(i); },
               Header()};
  const PrintSite site{&window_, [this](const std::string& text) { window_.ShowStatus(text); },
                       [this](const std::string& text) { ReportErrors(text); }};
  Printing(services_.settings, services_.log, services_.door, services_.clock).Print(job, site);
}

void Commands::SetUpPrinter() {
  FrmPrinterSetup dialog(
      services_.settings, services_.log, services_.door, window_.session.printerName,
      window_.results->Results().EntryCount(), [this](const std::string& text) { ReportErrors(text); }, &window_);
  services_.door.Run(dialog);
  window_.UpdateResultCommands();
}

void Commands::ChangeWeblink() {
  FrmWeblinkChoice dialog(services_.settings, services_.log, &window_);
  if (services_.door.Run(dialog) == QDialog::Accepted) {
    window_.lookup->ShowResource(GetSetting(services_.settings, Setting::Weblink));
  }
}

bool Commands::CanLookUp() const {
  return window_.lookup->Button()->isEnabled();
}

void Commands::LookUp() {
  const auto selected = window_.results->Selected();
  if (!selected) {
    return;
  }
  const std::string word = window_.results->Results().Entry(*selected);
  if (OpenLookup(GetSetting(services_.settings, Setting::Weblink), word)) {
    window_.ShowStatus("Attempting to look up definition for '" + word + "'");
  }
}

void Commands::Exit() {
  services_.log.Write(event::kEnd, "Application ended successfully");
  window_.session.stopFlag = true;
  window_.close();
}

}  // namespace quorvane
