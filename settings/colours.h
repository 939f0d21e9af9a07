// The colours of the main window: their text form, the nine elements and the palette.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "settings/settings_table.h"

namespace quorvane {

// A colour as stored: 0x00BBGGRR, or 0x80000000 and the number of a system colour.
using ColourValue = uint32_t;
inline constexpr ColourValue kSystemColourFlag = 0x80000000u;

struct Rgb {
  int red = 0;  // Each 0 to 255.
  int green = 0;
  int blue = 0;
};

// "&H" and eight hexadecimal digits: an ordinary colour ("&H00" and six digits) or a system colour ("&H800000" and
// two). Nothing for any other text.
std::optional<ColourValue> ParseColour(std::string_view text);
std::string ColourText(ColourValue colour);
Rgb RgbOf(ColourValue colour);

// A custom colour is six hexadecimal digits, blue, green, red. Padded with zeros in front to six; a text that is no
// colour becomes `fallback`.
std::string PadCustomColour(std::string_view text, std::string_view fallback);
Rgb RgbOfCustom(std::string_view sixDigits);
std::string CustomColourText(const Rgb& rgb);
// Two upper-case hexadecimal digits.
std::string HexPair(int value);

// In the order of the menu.
enum class ColourElement {
  MainBack,
  MainText,
  ResultsBack,
  ResultsText,
  LettersText,
  GroupText,
  WordChoiceText,
  StatusText,
  TimerText,
};

struct ColourElementRow {
  ColourElement element;
  std::string_view menuItem;  // Object name and caption of its menu item.
  std::string_view menuCaption;
  std::string_view caption;  // Of the colour window.
  Setting colour;
  Setting custom;
  std::string_view windowDefault;  // What the colour window's default command gives.
  std::string_view resetColour;    // What "Reset all to default" gives.
};
std::span<const ColourElementRow> ColourElements();
const ColourElementRow& RowOf(ColourElement element);
// The order in which "Reset all to default" applies and stores the elements.
std::span<const ColourElement> ResetOrder();

// The colour window's boxes 0 to 36; box 32 is the custom colour.
inline constexpr size_t kPaletteBoxes = 37;
inline constexpr size_t kCustomBox = 32;
std::span<const ColourValue, kPaletteBoxes> ColourPalette();

}  // namespace quorvane
