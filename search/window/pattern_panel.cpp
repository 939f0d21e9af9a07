#include "search/window/pattern_panel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "base/window/labels.h"
#include "base/window/qt_text.h"

namespace quorvane {
namespace {

QLabel* MakeNote(const QString& name, const QString& text, QWidget* parent) {
  QLabel* note = MakeLabel(name, text, {}, parent);
  QFont small = note->font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  note->setFont(small);
  note->setIndent(22);
  return note;
}

}  // namespace

PatternPanel::PatternPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("patternPanel");
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  lblInputWord_ = MakeLabel("lblInputWord", "Pattern :", {}, this);
  tbInput_ = Described(new QLineEdit(this), "tbInput", "The pattern to search for");
  tbInput_->setAccessibleName("Pattern");
  tbInput_->setMinimumWidth(280);
  QFont large = tbInput_->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  tbInput_->setFont(large);
  lblInputWord_->setBuddy(tbInput_);
  btnFindWords_ = Described(new QPushButton("&Words", this), "btnFindWords", "Search the lexicon");
  btnFindWords_->setMinimumWidth(110);
  btnCancel_ = Described(new QPushButton("E&xit", this), "btnCancel", "Leave the program");
  lblNumLetters_ = MakeLabel("lblNumLetters", "", "# letters", this);

  layout->addWidget(lblInputWord_, 0, 0);
  layout->addWidget(tbInput_, 0, 1);
  layout->addWidget(btnFindWords_, 0, 2);
  layout->addWidget(btnCancel_, 0, 3);
  layout->addWidget(lblNumLetters_, 1, 1, 1, 3);
  layout->setColumnStretch(1, 1);

  auto* modes = new QGridLayout;
  modes->setVerticalSpacing(0);
  modes->setHorizontalSpacing(20);
  modes->addWidget(MakeMode(WordType::WordList, "rbQuorvane", "&Word List", "Regular word list"), 0, 0);
  modes->addWidget(MakeMode(WordType::Palindrome, "rbPalindrome", "Pali&ndrome", "Returns only palindromes"), 0, 1);
  modes->addWidget(MakeMode(WordType::Anagram, "rbAnagram", "&Anagram", "Returns all anagrams (some or all letters)"),
                   0, 2);
  modes->addWidget(MakeMode(WordType::AnagramExact, "rbAnagramExact", "Anagra&m", "Return all exact-length anagrams"),
                   0, 3);
  modeNotes_ = {MakeNote("lblAnagall", "All words", this), MakeNote("lblAnagexact", "Exact length only", this)};
  modes->addWidget(modeNotes_[0], 1, 2);
  modes->addWidget(modeNotes_[1], 1, 3);
  modes->setColumnStretch(4, 1);
  layout->addLayout(modes, 2, 1, 1, 3);
  modes_[WordType::WordList]->setChecked(true);

  connect(tbInput_, &QLineEdit::textChanged, this, &PatternPanel::TextChanged);
  connect(tbInput_, &QLineEdit::returnPressed, this, [this] {
    if (btnFindWords_->isEnabled()) {
      emit SearchRequested();
    }
  });
  connect(btnFindWords_, &QPushButton::clicked, this, &PatternPanel::SearchRequested);
  connect(btnCancel_, &QPushButton::clicked, this, &PatternPanel::ExitRequested);
}

QRadioButton* PatternPanel::MakeMode(WordType type, const QString& name, const QString& caption,
                                     const QString& toolTip) {
  auto* button = Named(new QRadioButton(caption, this), name, toolTip);
  modes_[type] = button;
  connect(button, &QRadioButton::clicked, this, [this, type] { emit ModeChosen(type); });
  return button;
}

QList<QWidget*> PatternPanel::ModeCaptions() const {
  QList<QWidget*> captions = modeNotes_;
  for (const auto& [type, button] : modes_) {
    captions.push_back(button);
  }
  return captions;
}

std::string PatternPanel::Text() const {
  return ToBytes(tbInput_->text());
}

size_t PatternPanel::Caret() const {
  return static_cast<size_t>(tbInput_->cursorPosition());
}

void PatternPanel::ShowState(const InputQuestion& state) {
  const InputControls& controls = state.controls;
  const QString text = FromBytes(state.text);
  const QSignalBlocker quiet(tbInput_);
  if (tbInput_->text() != text) {
    tbInput_->setText(text);
  }
  if (tbInput_->cursorPosition() != static_cast<int>(state.caret)) {
    tbInput_->setCursorPosition(static_cast<int>(state.caret));
  }
  lblNumLetters_->setText(FromBytes(controls.letters));
  btnFindWords_->setEnabled(controls.canSearch);
  btnFindWords_->setText(FromText(FactsOf(controls.selected).searchCaption));
  modes_[WordType::Palindrome]->setEnabled(controls.palindrome);
  modes_[WordType::Anagram]->setEnabled(controls.anagrams);
  modes_[WordType::AnagramExact]->setEnabled(controls.anagrams);
  modes_[controls.selected]->setChecked(true);
}

bool PatternPanel::ModeEnabled(WordType type) const {
  return modes_.at(type)->isEnabled();
}

void PatternPanel::FocusPattern() {
  tbInput_->setFocus();
}

}  // namespace quorvane
