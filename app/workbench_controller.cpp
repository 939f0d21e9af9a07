#include "app/workbench_controller.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <algorithm>

#include "app/file_controller.h"
#include "app/search_controller.h"
#include "base/program_directory.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "results/search_command.h"
#include "results/search_run.h"
#include "results/window/frm_export.h"
#include "search/window/frm_wildcards.h"

namespace quorvane {
namespace {

constexpr size_t kMegabytesFrom = 1'000'000;  // From so many words on the status line says how much was copied.

}  // namespace

WorkbenchController::WorkbenchController(WorkbenchView& view, Session& session, Services& services,
                                         SearchController& search, FileController& files)
    : view_(view), session_(session), services_(services), search_(search), files_(files) {}

void WorkbenchController::CopyAll() {
  const WordSequence words = view_.ShownWords();
  if (words.numbers.empty()) {
    view_.ShowStatus("There are no words to copy.");
    return;
  }
  const Hourglass hourglass;
  std::string text;
  for (size_t i = 0; i < words.numbers.size(); ++i) {
    text += words.Word(i);
    text += '\n';
  }
  QApplication::clipboard()->setText(FromBytes(text));
  std::string said = FormatThousands(static_cast<int64_t>(words.numbers.size())) + " word" +
                     std::string(PluralS(static_cast<int64_t>(words.numbers.size()))) + " copied";
  if (words.numbers.size() > kMegabytesFrom) {
    said += " (" + std::to_string(text.size() / 1'000'000) + " megabytes)";
  }
  view_.ShowStatus(said);
}

void WorkbenchController::CopyAsCommand() {
  const Search search = view_.Said();
  const SearchRun run(search);
  if (run.Prepared().Empty() || run.Prepared().refusal) {
    view_.ShowStatus("There is no search to copy.");
    return;
  }
  const std::string command = CommandOf({search, view_.Order(), view_.UpperCase(), session_.lexiconPath,
                                         services_.programDirectory, UsualProgramDirectory()});
  QApplication::clipboard()->setText(FromText(command));
  view_.ShowStatus("Copied: " + command);
}

void WorkbenchController::Export() {
  FrmExport dialog(
      services_.settings, services_.door, view_.ShownWords(), services_.programDirectory,
      [this](const std::string& path) { return files_.WhyNotWriteTo(path); }, view_.Window());
  services_.door.Run(dialog);
  if (!dialog.Written().empty()) {
    view_.ShowStatus("The words have been exported to " + dialog.Written());
  }
}

void WorkbenchController::ShowWordMenu(const QPoint& place) {
  const auto word = view_.SelectedWord();
  if (!word) {
    return;
  }
  const bool letters = !word->empty() && std::all_of(word->begin(), word->end(), IsLetter);
  QMenu menu(view_.Window());
  menu.setObjectName("wordMenu");
  const auto add = [&](const QString& name, const QString& caption, bool enabled, const std::function<void()>& run) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, view_.Window(), run);
  };
  add("wordCopy", "&Copy", true, [this] { view_.CopySelection(); });
  add("wordCopyAll", "Copy &all words", true, [this] { CopyAll(); });
  add("wordDefinition", "&Definition (F5)", true, [this] { files_.LookUp(); });
  menu.addSeparator();
  add("wordAnagrams", "Find its a&nagrams (exact length)", letters, [this] { FindAnagrams(); });
  add("wordHolding", "Find words that &hold it", letters, [this] { FindHolding(); });
  menu.exec(place);
}

void WorkbenchController::FindAnagrams() {
  if (const auto word = view_.SelectedWord()) {
    view_.TypeText(FoldText(*word));
    search_.SelectMode(WordType::AnagramExact);
    search_.FindWords();
  }
}

void WorkbenchController::FindHolding() {
  if (const auto word = view_.SelectedWord()) {
    search_.SelectMode(WordType::WordList);
    view_.TypeText("*" + FoldText(*word) + "*");
    search_.FindWords();
  }
}

void WorkbenchController::ShowWildcardsBeside() {
  if (wildcards_ == nullptr) {
    auto* window = new FrmWildcards(view_.Window());
    QObject::connect(window, &FrmWildcards::CharacterChosen, window,
                     [this](char character) { view_.TypeCharacter(character); });
    wildcards_ = window;
  }
  wildcards_->show();
  wildcards_->raise();
  wildcards_->activateWindow();
}

}  // namespace quorvane
