// A box from which what it does not take goes as it is typed, without a word.
#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

namespace quorvane {

// What is left of a text with the caret there.
using KeptText = std::function<std::string(const std::string& text, size_t caret)>;

// Whether the box holds what is kept of it; else it is given that, which its textChanged says.
bool HoldsKept(QLineEdit& box, const KeptText& kept);

}  // namespace quorvane
