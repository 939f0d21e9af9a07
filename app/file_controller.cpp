#include "app/file_controller.h"

#include "app/frm_amend.h"
#include "app/frm_help.h"
#include "app/start/shut_down.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"
#include "lexicon/load_report.h"
#include "lexicon/window/frm_import.h"
#include "lexicon/window/frm_lex_name.h"
#include "lexicon/window/frm_lex_problem.h"
#include "lexicon/window/frm_new_lex.h"
#include "lexicon/window/frm_wait.h"
#include "lexicon/word_list_reader.h"
#include "lookup/window/frm_weblink_choice.h"
#include "lookup/window/lookup_panel.h"
#include "print/window/frm_printer_setup.h"
#include "print/window/printing.h"
#include "results/results_file.h"
#include "results/summary.h"
#include "search/history.h"

namespace quorvane {
namespace {

// The progress bar for as long as the object lives, moved by percentages.
class MovingBar {
 public:
  explicit MovingBar(View& view) : view_(view) { view_.BeginProgress(100); }
  ~MovingBar() { view_.EndProgress(); }
  MovingBar(const MovingBar&) = delete;
  MovingBar& operator=(const MovingBar&) = delete;

  std::function<void(int)> Mover() const {
    return [this](int percent) { view_.ShowProgress(percent); };
  }

 private:
  View& view_;
};

std::string NotSavedText(const FileError& error) {
  return "The word list could not be saved to " + error.Text();
}

}  // namespace

FileController::FileController(FileView& view, Session& session, Services& services)
    : view_(view), session_(session), services_(services) {}

void FileController::ReportErrors(const std::string& text) {
  services_.door.Show(view_.Window(), text);
  services_.log.Write(event::kError, text);
}

LoadResult FileController::Load(const std::string& path) {
  const Hourglass hourglass;
  const MovingBar bar(view_);
  return LoadLexicon(path, kLexiconCapacity, TextSource::Read, bar.Mover());
}

std::shared_ptr<const Lexicon> FileController::ReadLexicon(const std::string& path) {
  if (const auto irregular = NotRegular(path)) {
    session_.stopFlag = true;
    session_.exitStatus = 1;
    services_.log.Write(event::kError, irregular->Text());
    services_.door.Show(view_.Window(), irregular->Text());
    return nullptr;
  }
  const LoadResult result = Load(path);
  const LoadReport report = ReportOf(result);
  // Before the box: the entry is there, and the status set, however the box is left.
  if (!result.Usable()) {
    session_.stopFlag = true;
    session_.exitStatus = 1;
  }
  if (result.outcome != LoadOutcome::Ok) {
    services_.log.Write(report.logCode, report.logText);
  }
  if (result.outcome == LoadOutcome::ListError) {
    FrmLexProblem problem(path, result, view_.Window());
    services_.door.Run(problem);
  } else if (result.outcome != LoadOutcome::Ok) {
    services_.door.Show(view_.Window(), report.boxText);
  }
  return result.lexicon;
}

bool FileController::LoadLexiconFile(const std::string& path) {
  const std::shared_ptr<const Lexicon> lexicon = ReadLexicon(path);
  if (session_.ended) {
    return false;
  }
  if (lexicon == nullptr) {
    ShutDown(services_, session_);
    return false;
  }
  session_.lexicon = lexicon;
  session_.lexiconPath = path;
  return true;
}

void FileController::LexiconOpened(const std::string& name) {
  services_.log.Write(event::kNewLexicon,
                      std::to_string(session_.lexicon->count()) + " words defined in lexicon file '" + name + "'");
  SaveSetting(services_.settings, Setting::LexiconFile, name);
  view_.ShowLexicon(name);
}

std::optional<std::string> FileController::SwitchLexicon(const std::string& name) {
  if (name.empty() || name == GetSetting(services_.settings, Setting::LexiconFile)) {
    return std::nullopt;
  }
  const std::string path = ResolvePath(services_.programDirectory, name);
  if (!FileExists(path)) {
    return "is gone";
  }
  if (NotRegular(path)) {
    return "is no file";
  }
  const LoadResult result = [&] {
    const Hourglass hourglass;
    const MovingBar bar(view_);
    return LoadLexicon(path, kLexiconCapacity, TextSource::Read, bar.Mover());
  }();
  if (result.outcome != LoadOutcome::Ok) {
    return "can't be used";
  }
  session_.lexicon = result.lexicon;
  session_.lexiconPath = path;
  LexiconOpened(name);
  return std::nullopt;
}

void FileController::OpenNewLexicon() {
  const std::string current = GetSetting(services_.settings, Setting::LexiconFile);
  FrmNewLex choice(services_.programDirectory, current, view_.Window());
  if (services_.door.Run(choice) != QDialog::Accepted || choice.Chosen().empty()) {
    return;
  }
  const std::string& name = choice.Chosen();
  {
    FrmWait wait(view_.Window());
    wait.ShowNow();
    if (!LoadLexiconFile(JoinPath(services_.programDirectory, name))) {
      return;
    }
  }
  Introduce(name);
}

void FileController::Introduce(const std::string& name) {
  const int32_t count = session_.lexicon->count();
  LexiconOpened(name);
  session_.input.noun = FactsOf(WordType::WordList).noun;  // Of the next search.
  services_.door.Show(view_.Window(), "    New lexicon file\r\n\r\n    " + name + "\r\n\r\nhas been loaded\r\nwith " +
                                          FormatThousands(count) + " words.");
}

void FileController::OpenAside(const std::string& name) {
  const std::string path = JoinPath(services_.programDirectory, name);
  const std::string refusal = "The lexicon " + name + " can't be used, and the one in use stays. ";
  if (const auto irregular = NotRegular(path)) {
    ReportErrors(refusal + irregular->Text());
    return;
  }
  const LoadResult result = [&] {
    FrmWait wait(view_.Window());
    wait.ShowNow();
    return Load(path);
  }();
  const LoadReport report = ReportOf(result);
  if (!result.Usable()) {
    ReportErrors(refusal + report.logText);
    return;
  }
  if (result.outcome != LoadOutcome::Ok) {
    services_.log.Write(report.logCode, report.logText);
    services_.door.Show(view_.Window(), report.boxText);
  }
  session_.lexicon = result.lexicon;
  session_.lexiconPath = path;
  Introduce(name);
}

void FileController::ImportList(const std::string& path) {
  const auto refusal = [this](const std::string& target) -> std::optional<std::string> {
    if (IsSameFile(target, session_.lexiconPath)) {
      return target + " is the lexicon in use, which can't be replaced. Choose another name.";
    }
    return std::nullopt;
  };
  FrmImport dialog(services_.door, services_.programDirectory, refusal, path, view_.Window());
  services_.door.Run(dialog);
  if (dialog.Made().empty()) {
    return;
  }
  view_.ShowStatus("The word list has been imported as lexicon \"" + dialog.Made() + "\"");
  if (dialog.OpenNow()) {
    OpenAside(dialog.Made());
  }
}

void FileController::TakeDropped(const std::vector<std::string>& paths) {
  if (paths.size() != 1) {
    services_.door.Show(view_.Window(), "Drop one file at a time: these were " +
                                            FormatThousands(static_cast<int64_t>(paths.size())) + ".");
    return;
  }
  const std::string& path = paths.front();
  for (const std::string& name : LexiconFilesIn(services_.programDirectory)) {
    const bool storable = ToText(FromText(name)) == name;  // What the settings file can't hold is not offered either.
    if (storable && IsSameFile(path, JoinPath(services_.programDirectory, name))) {
      OpenAside(name);
      return;
    }
  }
  if (const WordListRead read = ReadWordListHead(path); read.error) {
    services_.door.Show(view_.Window(), "Can't read " + read.error->Text());
    return;
  }
  ImportList(path);
}

std::vector<ProtectedFile> FileController::ProtectedFiles() const {
  return {{session_.lexiconPath, "the lexicon in use"},
          {services_.log.path(), "the log"},
          {services_.settingsFile, "the settings file"},
          {JoinPath(services_.programDirectory, kHistoryName), "the history"},
          {OwnOrInstalled(services_.programDirectory, ExecutableDirectory(), kHelpFileName), "the help"}};
}

std::optional<std::string> FileController::WhyNotWriteTo(const std::string& path) const {
  return WhyNotASaveFile(path, ProtectedFiles());
}

void FileController::ChangeSaveName() {
  FrmAmend dialog(services_, ProtectedFiles(), view_.Window());
  services_.door.Run(dialog);
}

bool FileController::WriteResults(bool automatic) {
  const std::string path = SaveFilePath(services_.settings, services_.programDirectory);
  SaveSetting(services_.settings, Setting::SaveFileName, path);
  const std::string target = ResolvePath(services_.programDirectory, path);
  if (const auto reason = WhyNotWriteTo(target)) {
    ReportSaveFailure("The word list could not be saved: " + *reason, automatic);
    return false;
  }
  const Search said = view_.Said();
  view_.ShowStatus(WritingStatus(view_.Results().FoundCount(), said));
  const Hourglass hourglass;
  const MovingBar bar(view_);
  const auto error = WriteResultsFile(target, said, view_.Results(), view_.Order(), bar.Mover());
  if (error) {
    ReportSaveFailure(NotSavedText(*error), automatic);
    return false;
  }
  session_.lastSaveFailure.clear();
  return true;
}

// The status line and the log say it every time; a box that autosave has shown is not shown again for the same reason.
void FileController::ReportSaveFailure(const std::string& text, bool automatic) {
  const bool shown = automatic && session_.lastSaveFailure == text;
  session_.lastSaveFailure = text;
  if (!shown) {
    services_.door.Show(view_.Window(), text);
  }
  view_.ShowStatus(text);
  services_.log.Write(event::kError, text);
}

void FileController::SaveList() {
  if (WriteResults(false)) {
    view_.ShowStatus("Current wordlist has been saved");
    services_.log.Write(event::kSaved, "Wordlist has been saved");
  }
}

void FileController::SaveAsLexicon() {
  FrmLexName dialog(services_.programDirectory, services_.door, view_.Window());
  services_.door.Run(dialog);
  const std::string& name = dialog.Name();
  if (name.empty()) {
    return;
  }
  view_.ShowStatus(WritingStatus(view_.Results().FoundCount(), view_.Said()));
  const std::string path = JoinPath(services_.programDirectory, name + std::string(kLexiconExtension));
  const Hourglass hourglass;
  const MovingBar bar(view_);
  if (const auto error = WriteResultsAsLexicon(path, view_.Results(), view_.Order(), bar.Mover())) {
    ReportSaveFailure(NotSavedText(*error), false);
    return;
  }
  view_.ShowStatus("Current word list has been saved as lexicon \"" + name + "\"");
  services_.log.Write(event::kSavedLexicon, "Wordlist has been saved as a new Lexicon '" + name + "'");
}

void FileController::Print() {
  const ResultList& results = view_.Results();
  PrintJob job{session_.printerName, results.WholeCount(), [&results](size_t i) { return results.WholeEntry(i); },
               results.FoundCount(), view_.Said()};
  const PrintSite site{view_.Window(), [this](const std::string& text) { view_.ShowStatus(text); },
                       [this](const std::string& text) { ReportErrors(text); }};
  Printing(services_.settings, services_.log, services_.door, services_.clock).Print(job, site);
}

void FileController::SetUpPrinter() {
  FrmPrinterSetup dialog(
      services_.settings, services_.log, services_.door, session_.printerName, view_.Results().WholeCount(),
      [this](const std::string& text) { ReportErrors(text); }, view_.Window());
  services_.door.Run(dialog);
  view_.UpdateCommands();
}

void FileController::ChangeWeblink() {
  FrmWeblinkChoice dialog(services_.settings, services_.log, view_.Window());
  if (services_.door.Run(dialog) == QDialog::Accepted) {
    view_.ShowResource(GetSetting(services_.settings, Setting::Weblink));
  }
}

void FileController::LookUp() {
  const auto word = view_.SelectedWord();
  if (word && OpenLookup(GetSetting(services_.settings, Setting::Weblink), *word)) {
    view_.ShowStatus("Attempting to look up definition for '" + *word + "'");
  }
}

void FileController::Exit() {
  services_.log.Write(event::kEnd, "Application ended successfully");
  session_.stopFlag = true;
  view_.Leave();
}

}  // namespace quorvane
