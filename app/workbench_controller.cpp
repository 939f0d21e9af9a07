#include "app/workbench_controller.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <algorithm>

#include "app/file_controller.h"
#include "app/guard.h"
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

std::string WorkbenchController::ShownCount() const {
  const ResultList& results = view_.Results();
  const std::string found = FormatThousands(static_cast<int64_t>(results.FoundCount()));
  const auto shown = static_cast<int64_t>(results.Shown().numbers.size());
  return results.Narrowed() ? FormatThousands(shown) + " of " + found : found;
}

void WorkbenchController::FindWithin() {
  view_.ShowWithin(ShownCount());
  view_.OpenWithin();
}

void WorkbenchController::Narrow(const std::string& pattern) {
  const auto& made = view_.Results().MadeBy();
  if (!made) {
    return;
  }
  Search asked;
  asked.lists = made->lists;
  asked.conditions = {{ConditionKind::And, pattern}};
  const PreparedConditions prepared = PrepareConditions(asked);
  const auto entry = view_.SelectedEntry();
  const std::string selected = entry ? view_.Results().Entry(*entry) : "";
  view_.ChangeResults([&](ResultList& results) {
    if (prepared.all.empty()) {
      results.ShowAll();
    } else {
      results.Narrow(pattern, prepared.all.front());
    }
  });
  view_.ShowWithin(pattern.empty() || view_.Results().Narrowed() ? ShownCount() : "-");
  view_.SelectEntry(entry ? view_.Results().Find(selected) : std::nullopt);
  view_.UpdateCommands();
}

void WorkbenchController::KeepNarrowed() {
  if (!view_.Results().Narrowed()) {
    return;
  }
  if (view_.Results().EntryCount() == 0) {
    view_.ShowStatus("None of the words fits, so the list stays.");
    return;
  }
  const auto entry = view_.SelectedEntry();
  view_.ChangeResults([](ResultList& results) { results.KeepNarrowed(); });
  view_.SelectEntry(entry);
  view_.FocusList();
  view_.CloseWithin();
  view_.ShowStatus("The list is now " + ShownCount() + " word" +
                   std::string(PluralS(static_cast<int64_t>(view_.Results().FoundCount()))));
  view_.UpdateCommands();
}

void WorkbenchController::SayDragged(size_t count) {
  if (view_.Results().Narrowed()) {
    view_.ShowStatus(FormatThousands(static_cast<int64_t>(count)) + " of the words shown (" + ShownCount() +
                     ") have been dragged");
  }
}

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
  std::string said =
      ShownCount() + " word" + std::string(PluralS(static_cast<int64_t>(view_.Results().FoundCount()))) + " copied";
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
  if (view_.Results().Narrowed()) {
    dialog.setWindowTitle(FromText("Export " + ShownCount() + " words"));
  }
  services_.door.Run(dialog);
  if (!dialog.Written().empty()) {
    const std::string words = view_.Results().Narrowed() ? ShownCount() + " words" : "The words";
    view_.ShowStatus(words + " have been exported to " + dialog.Written());
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
    QObject::connect(action, &QAction::triggered, view_.Window(),
                     [this, caption, run] { Guarded(services_, view_.Window(), ToText(caption), run); });
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
