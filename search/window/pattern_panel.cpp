#include "search/window/pattern_panel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "search/window/pattern_box.h"
#include "settings/window/colour_scheme.h"

namespace quorvane {
namespace {

QLabel* MakeNote(const QString& name, const QString& text, QWidget* parent) {
  QLabel* note = MakeLabel(name, text, {}, parent);
  QFont small = note->font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  note->setFont(small);
  note->setIndent(22);
  ShowsColour(note, ColourElement::MainBack, ColourUse::ReadableText);
  return note;
}

}  // namespace

PatternPanel::PatternPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("patternPanel");
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  QLabel* caption = MakeLabel("lblInputWord", "Pattern :", {}, this);
  tbInput_ = Described(new PatternBox(this), "tbInput", "The pattern to search for");
  tbInput_->setAccessibleName("Pattern");
  tbInput_->setMinimumWidth(280);
  QFont large = tbInput_->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  tbInput_->setFont(large);
  ShowsColour(caption, ColourElement::MainText);
  caption->setBuddy(tbInput_);
  btnFindWords_ = Described(new QPushButton("&Words", this), "btnFindWords", "Search the lexicon");
  btnFindWords_->setMinimumWidth(110);
  auto* exit = Described(new QPushButton("E&xit", this), "btnCancel", "Leave the program");
  lblNumLetters_ = MakeLabel("lblNumLetters", "", "# letters", this);
  ShowsColour(lblNumLetters_, ColourElement::LettersText);

  layout->addWidget(caption, 0, 0);
  layout->addWidget(tbInput_, 0, 1);
  layout->addWidget(btnFindWords_, 0, 2);
  layout->addWidget(exit, 0, 3);
  lblReading_ = Described(new ElidedLabel(this), "lblReading", "What is searched, in words");
  ShowsColour(lblReading_, ColourElement::MainText);
  lblReading_->hide();
  auto* letters = new QHBoxLayout;
  letters->addWidget(lblNumLetters_);
  letters->addWidget(lblReading_, 1);
  layout->addLayout(letters, 1, 1, 1, 3);
  layout->setColumnStretch(1, 1);

  auto* modes = new QGridLayout;
  modes->setVerticalSpacing(0);
  modes->setHorizontalSpacing(20);
  int column = 0;
  for (const WordTypeFacts& facts : WordTypes()) {
    modes->addWidget(MakeMode(facts), 0, column++);
  }
  modes->addWidget(MakeNote("lblAnagall", "All words", this), 1, 2);
  modes->addWidget(MakeNote("lblAnagexact", "Exact length only", this), 1, 3);
  modes->setColumnStretch(column, 1);
  layout->addLayout(modes, 2, 1, 1, 3);
  modes_[WordType::WordList]->setChecked(true);

  connect(tbInput_, &QLineEdit::textChanged, this, [this] { emit TextChanged(Text(), Caret()); });
  connect(tbInput_, &PatternBox::Refused, this, &PatternPanel::TextChanged);
  connect(tbInput_, &PatternBox::StepRequested, this, &PatternPanel::StepRequested);
  connect(tbInput_, &PatternBox::TurnedAway, this, &PatternPanel::TurnedAway);
  connect(tbInput_, &QLineEdit::returnPressed, this, [this] {
    if (btnFindWords_->isEnabled()) {
      emit SearchRequested();
    }
  });
  connect(btnFindWords_, &QPushButton::clicked, this, &PatternPanel::SearchRequested);
  connect(exit, &QPushButton::clicked, this, &PatternPanel::ExitRequested);
}

QRadioButton* PatternPanel::MakeMode(const WordTypeFacts& facts) {
  auto* button =
      Named(new QRadioButton(FromText(facts.caption), this), FromText(facts.objectName), FromText(facts.toolTip));
  modes_[facts.type] = button;
  button->setAccessibleName(FromText(facts.spokenName));  // Empty: the caption.
  // A mode has no colour of its own and must be readable on any background.
  ShowsColour(button, ColourElement::MainBack, ColourUse::ReadableText);
  connect(button, &QRadioButton::clicked, this, [this, type = facts.type] { emit ModeChosen(type); });
  return button;
}

std::string PatternPanel::Text() const {
  return tbInput_->Text();
}

size_t PatternPanel::Caret() const {
  return static_cast<size_t>(tbInput_->cursorPosition());
}

void PatternPanel::ShowText(const std::string& text, size_t caret) {
  tbInput_->ShowText(text, caret);
}

void PatternPanel::ReplaceText(const std::string& text, size_t caret) {
  tbInput_->Replace(text, caret);
}

void PatternPanel::SetCheck(std::function<std::string(const std::string& text, size_t caret)> check) {
  tbInput_->SetCheck(std::move(check));
}

void PatternPanel::ShowControls(const InputControls& controls) {
  lblNumLetters_->setText(FromBytes(controls.letters));
  btnFindWords_->setEnabled(controls.canSearch);
  btnFindWords_->setText(FromText(FactsOf(controls.selected).searchCaption));
  modes_[WordType::Palindrome]->setEnabled(controls.palindrome);
  modes_[WordType::Anagram]->setEnabled(controls.anagrams);
  modes_[WordType::AnagramExact]->setEnabled(controls.anagrams);
  modes_[controls.selected]->setChecked(true);
}

void PatternPanel::TypeOver(const std::string& text) {
  tbInput_->TypeOver(FromBytes(text));
}

void PatternPanel::TypeAtCaret(char character) {
  tbInput_->insert(QString(QChar(character)));
}

void PatternPanel::ShowReading(const QString& text) {
  lblReading_->setVisible(!text.isEmpty());
  lblReading_->setText(text);
  lblReading_->setToolTip(text);
  lblReading_->setAccessibleDescription(text);
}

void PatternPanel::FocusPattern() {
  tbInput_->setFocus();
}

}  // namespace quorvane
