#include "search/window/clean_box.h"

#include "base/window/qt_text.h"

namespace quorvane {

bool HoldsKept(QLineEdit& box, const KeptText& kept) {
  const std::string typed = ToBytes(box.text());
  const auto caret = static_cast<size_t>(box.cursorPosition());
  const std::string left = kept(typed, caret);
  if (left == typed) {
    return true;
  }
  const size_t shorter = typed.size() > left.size() ? typed.size() - left.size() : 0;
  box.setText(FromBytes(left));
  box.setCursorPosition(static_cast<int>(caret > shorter ? caret - shorter : 0));
  return false;
}

}  // namespace quorvane
