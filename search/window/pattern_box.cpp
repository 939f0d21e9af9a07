#include "search/window/pattern_box.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QToolButton>
#include <QValidator>
#include <utility>

#include "base/window/controls.h"
#include "base/window/qt_text.h"

namespace quorvane {
namespace {

bool IsStep(const QKeyEvent& event) {
  return (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) &&
         (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

// A key that does nothing by itself.
bool IsModifier(const QKeyEvent& event) {
  return (event.key() >= Qt::Key_Shift && event.key() <= Qt::Key_ScrollLock) || event.key() == Qt::Key_Super_L ||
         event.key() == Qt::Key_Super_R || event.key() == Qt::Key_AltGr;
}

}  // namespace

// Asked by the box before a change counts; a change that it does not take is undone and leaves no trace.
class PatternBox::Validator : public QValidator {
 public:
  explicit Validator(PatternBox* box) : QValidator(box), box_(*box) {}
  State validate(QString& text, int& caret) const override { return box_.Takes(text, caret) ? Acceptable : Invalid; }

 private:
  PatternBox& box_;
};

PatternBox::PatternBox(QWidget* parent) : QLineEdit(parent) {
  setValidator(new Validator(this));
  setClearButtonEnabled(true);
  connect(this, &QLineEdit::textChanged, this, [this] { replaced_ = false; });
  if (auto* clear = findChild<QToolButton*>()) {
    Named(clear, "cmdClearPattern", "Clear the pattern");
    clear->setAccessibleName("Clear the pattern");
  }
}

std::string PatternBox::Text() const {
  return ToBytes(text());
}

void PatternBox::ShowText(const std::string& text, size_t caret) {
  const QSignalBlocker quiet(this);
  shown_ = text;
  replaced_ = false;
  if (Text() != text) {
    setText(FromBytes(text));
  }
  if (cursorPosition() != static_cast<int>(caret)) {
    setCursorPosition(static_cast<int>(caret));
  }
}

void PatternBox::TypeOver(const QString& text) {
  selectAll();
  insert(text);
  Settle();
}

void PatternBox::Replace(const std::string& text, size_t caret) {
  const QSignalBlocker quiet(this);
  asking_ = false;
  if (std::exchange(replaced_, false)) {
    undo();
  }
  if (Text() != text) {
    selectAll();
    insert(FromBytes(text));
    replaced_ = true;
  }
  setCursorPosition(static_cast<int>(caret));
  shown_ = text;
  asking_ = true;
}

void PatternBox::TurnAway() {
  replaced_ = false;
  emit TurnedAway();
}

bool PatternBox::Takes(const QString& text, int caret) {
  const std::string typed = ToBytes(text);
  if (!asking_ || typed == shown_ || !check_ || check_(typed, static_cast<size_t>(caret)) != shown_) {
    return true;
  }
  // While this is asked the box holds the typed text; what is said of it waits.
  refused_ = Typed{typed, static_cast<size_t>(caret)};
  QMetaObject::invokeMethod(this, &PatternBox::Settle, Qt::QueuedConnection);
  return false;
}

// Keys of the menu come here first, as the question whether the box wants them.
bool PatternBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!IsStep(*key) && !IsModifier(*key)) {
      TurnAway();
    }
  }
  return QLineEdit::event(event);
}

void PatternBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  TurnAway();
}

void PatternBox::keyPressEvent(QKeyEvent* event) {
  if (IsStep(*event)) {
    event->accept();
    emit StepRequested(event->key() == Qt::Key_Up);
    return;
  }
  if (!IsModifier(*event)) {
    TurnAway();
  }
  QLineEdit::keyPressEvent(event);
  Settle();
}

void PatternBox::Settle() {
  if (const auto refused = std::exchange(refused_, std::nullopt)) {
    emit Refused(refused->text, refused->caret);
  }
}

}  // namespace quorvane
