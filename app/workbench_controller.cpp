#include "app/workbench_controller.h"

#include <QApplication>
#include <QClipboard>
#include <algorithm>

#include "app/search_controller.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "search/window/frm_wildcards.h"

namespace quorvane {
namespace {

constexpr size_t kMegabytesFrom = 1'000'000;  // From so many words on the status line says how much was copied.

}  // namespace

WorkbenchController::WorkbenchController(WorkbenchView& view, Session& session, Services& services,
                                         SearchController& search)
    : view_(view), session_(session), services_(services), search_(search) {}

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
