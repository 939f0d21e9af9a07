#include "lexicon/window/lexicon_name_box.h"

#include "base/window/controls.h"
#include "base/window/qt_text.h"
#include "lexicon/lexicon_name.h"

namespace quorvane {
namespace {

constexpr int kMaxName = 200;

}  // namespace

LexiconNameBox::LexiconNameBox(const QString& name, const QString& toolTip, QWidget* parent) : QLineEdit(parent) {
  Named(this, name, toolTip);
  setMaxLength(kMaxName);
  setAccessibleName("Lexicon name");
  connect(this, &QLineEdit::textChanged, this, &LexiconNameBox::Clean);
}

std::string LexiconNameBox::Name() const {
  return ToBytes(text());
}

void LexiconNameBox::Clean() {
  const QString typed = text();
  const QString clean = FromBytes(CleanLexiconName(ToBytes(typed)));
  if (clean != typed) {
    const int caret = cursorPosition();
    const auto kept = CleanLexiconName(ToBytes(typed.left(caret))).size();
    setText(clean);
    setCursorPosition(static_cast<int>(kept));
  }
}

}  // namespace quorvane
