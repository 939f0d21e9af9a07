// The box that a pattern is typed into. What is refused never gets in: the box keeps its text and its undo history.
#pragma once

#include <QLineEdit>
#include <functional>
#include <optional>
#include <string>

namespace quorvane {

class PatternBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit PatternBox(QWidget* parent);

  // Says what would be left of a text typed with the caret there.
  using Check = std::function<std::string(const std::string& text, size_t caret)>;
  void SetCheck(Check check) { check_ = std::move(check); }

  // 8-bit, as the engine takes it.
  std::string Text() const;
  void ShowText(const std::string& text, size_t caret);
  // As if it were typed over the whole text.
  void TypeOver(const QString& text);
  // The same without a word of it; the caret goes there. Until another key is pressed or the focus leaves, the box's
  // undo brings back what it held before the first of these.
  void Replace(const std::string& text, size_t caret);

 signals:
  // A change of the text that left nothing behind: what it would have been.
  void Refused(const std::string& text, size_t caret);
  // Up or Down was pressed.
  void StepRequested(bool up);
  // Another key was pressed, or the focus has left.
  void TurnedAway();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  class Validator;
  struct Typed {
    std::string text;
    size_t caret = 0;
  };
  bool Takes(const QString& text, int caret);
  void TurnAway();
  // Tells of what was refused, once the box is itself again.
  void Settle();

  Check check_;
  std::string shown_;  // The text as the last check left it.
  std::optional<Typed> refused_;
  bool asking_ = true;     // Whether a change is asked for.
  bool replaced_ = false;  // The last change was a Replace.
};

}  // namespace quorvane
