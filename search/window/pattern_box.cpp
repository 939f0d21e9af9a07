#include "search/window/pattern_box.h"

#include <QSignalBlocker>
#include <QToolButton>
#include <QValidator>
#include <utility>

#include "base/window/controls.h"
#include "base/window/qt_text.h"

namespace quorvane {

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
  if (Text() != text) {
    setText(FromBytes(text));
  }
  shown_ = text;
  if (cursorPosition() != static_cast<int>(caret)) {
    setCursorPosition(static_cast<int>(caret));
  }
}

void PatternBox::TypeOver(const QString& text) {
  selectAll();
  insert(text);
  Settle();
}

bool PatternBox::Takes(const QString& text, int caret) {
  const std::string typed = ToBytes(text);
  if (typed == shown_ || !check_ || check_(typed, static_cast<size_t>(caret)) != shown_) {
    return true;
  }
  // While this is asked the box holds the typed text; what is said of it waits.
  refused_ = Typed{typed, static_cast<size_t>(caret)};
  QMetaObject::invokeMethod(this, &PatternBox::Settle, Qt::QueuedConnection);
  return false;
}

void PatternBox::keyPressEvent(QKeyEvent* event) {
  QLineEdit::keyPressEvent(event);
  Settle();
}

void PatternBox::Settle() {
  if (const auto refused = std::exchange(refused_, std::nullopt)) {
    emit Refused(refused->text, refused->caret);
  }
}

}  // namespace quorvane
