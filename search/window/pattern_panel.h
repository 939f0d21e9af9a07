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
  void ShowState(const InputQuestion& state);
  bool ModeEnabled(WordType type) const;
  void FocusPattern();

  QPushButton* SearchButton() const { return btnFindWords_; }
  QPushButton* ExitButton() const { return btnCancel_; }
  QLineEdit* PatternBox() const { return tbInput_; }
  QLabel* LettersLabel() const { return lblNumLetters_; }
  // The labels that follow the main text colour.
  QLabel* Caption() const { return lblInputWord_; }
  // The captions of the modes, which have no colour of their own and must be readable on any background.
  QList<QWidget*> ModeCaptions() const;

 signals:
  void TextChanged();
  void ModeChosen(quorvane::WordType type);
  void SearchRequested();
  void ExitRequested();

 private:
  QRadioButton* MakeMode(WordType type, const QString& name, const QString& caption, const QString& toolTip);

  QLabel* lblInputWord_ = nullptr;
  QLineEdit* tbInput_ = nullptr;
  QPushButton* btnFindWords_ = nullptr;
  QPushButton* btnCancel_ = nullptr;
  QLabel* lblNumLetters_ = nullptr;
  std::map<WordType, QRadioButton*> modes_;
  QList<QWidget*> modeNotes_;
};

}  // namespace quorvane
