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
  // Shows what a check of the text left: text, caret, mode, and what is allowed.
  void ShowState(const InputState& state);
  void FocusPattern();

 signals:
  void TextChanged();
  void ModeChosen(quorvane::WordType type);
  void SearchRequested();
  void ExitRequested();

 private:
  QRadioButton* MakeMode(WordType type, const QString& name, const QString& caption, const QString& toolTip);

  QLineEdit* tbInput_ = nullptr;
  QPushButton* btnFindWords_ = nullptr;
  QLabel* lblNumLetters_ = nullptr;
  std::map<WordType, QRadioButton*> modes_;
};

}  // namespace quorvane
