// Texts on their way between the engine (8-bit) and the screen.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quorvane {

// Words, patterns and lists: one byte is one character of Windows-1252.
QString FromBytes(std::string_view bytes);
// The bytes of a typed text; a character that Windows-1252 lacks becomes a control character, which no pattern, list
// or name allows.
std::string ToBytes(const QString& text);

// Paths and fixed texts, in UTF-8; a text that is not UTF-8 is read as Windows-1252.
QString FromText(std::string_view text);
std::string ToText(const QString& text);

// A text for a label or a box: every CR LF (and LF CR) is one line break.
QString ScreenText(std::string_view text);

// Twips, 1440 to the inch, as pixels of a screen of 96 to the inch, which Qt scales.
constexpr int PixelsOfTwips(int twips) {
  return twips / 15;
}

}  // namespace quorvane
