// The pattern box with its modes.
#pragma once

#include <QWidget>
#include <map>

#include "search/input_check.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quorvane {

class PatternPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PatternPanel(QWidget* parent);

  std::string Text() const;
  size_t Caret() const;
  // Shows what a check left of the text, and then the mode and what is allowed.
  void ShowText(const std::string& text, size_t caret);
  void ShowControls(const InputControls& controls);
  void FocusPattern();

 signals:
  void TextChanged();
  void ModeChosen(quorvane::WordType type);
  void SearchRequested();
  void ExitRequested();

 private:
  QRadioButton* MakeMode(const WordTypeFacts& facts);

  QLineEdit* tbInput_ = nullptr;
  QPushButton* btnFindWords_ = nullptr;
  QLabel* lblNumLetters_ = nullptr;
  std::map<WordType, QRadioButton*> modes_;
};

}  // namespace quorvane
