// The pattern box with its modes.
#pragma once

#include <QWidget>
#include <functional>
#include <map>

#include "search/input_check.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace quorvane {

class ElidedLabel;
class PatternBox;

class PatternPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PatternPanel(QWidget* parent);

  std::string Text() const;
  size_t Caret() const;
  // Shows another text without a word of it; the box's undo brings the last one back.
  void ReplaceText(const std::string& text, size_t caret);
  // Shows what a check left of the text, and then the mode and what is allowed.
  void ShowText(const std::string& text, size_t caret);
  void ShowControls(const InputControls& controls);
  void FocusPattern();
  // What is searched, in words, beside the letter count; elided where it is long.
  void ShowReading(const QString& text);
  // As if typed: over the whole text, and at the caret.
  void TypeOver(const std::string& text);
  void TypeAtCaret(char character);
  // Says what a check would leave of a text.
  void SetCheck(std::function<std::string(const std::string& text, size_t caret)> check);

 signals:
  // The text was changed, by whoever. `text` and `caret` are what was typed, which the box may not hold.
  void TextChanged(const std::string& text, size_t caret);
  void ModeChosen(quorvane::WordType type);
  void SearchRequested();
  // Up or Down was pressed in the box.
  void StepRequested(bool up);
  // Another key was pressed there, or the focus has left it.
  void TurnedAway();
  void ExitRequested();

 private:
  QRadioButton* MakeMode(const WordTypeFacts& facts);

  PatternBox* tbInput_ = nullptr;
  QPushButton* btnFindWords_ = nullptr;
  QLabel* lblNumLetters_ = nullptr;
  ElidedLabel* lblReading_ = nullptr;
  std::map<WordType, QRadioButton*> modes_;
};

}  // namespace quorvane
