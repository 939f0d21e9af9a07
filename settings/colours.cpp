#include "settings/colours.h"

#include <algorithm>
#include <cstdio>

namespace quorvane {
namespace {

constexpr size_t kColourDigits = 8;
constexpr size_t kCustomDigits = 6;

constexpr std::array kElements = {
    ColourElementRow{ColourElement::MainBack, "menMainBack", "&Main Background", "Main background",
                     Setting::ColourMainBack, Setting::CustomMainBack, "&H8000000F", "&H8000000F"},
    ColourElementRow{ColourElement::MainText, "memMainText", "Main Te&xt", "Main text", Setting::ColourMainText,
                     Setting::CustomMainText, "&H00000000", "&H00000000"},
    ColourElementRow{ColourElement::ResultsBack, "menResBack", "Results box &Background", "Results background",
                     Setting::ColourListBack, Setting::CustomListBack, "&H00800000", "&H00800000"},
    ColourElementRow{ColourElement::ResultsText, "menResText", "Results box &Text", "Results text",
                     Setting::ColourListText, Setting::CustomListText, "&H0000FFFF", "&H0000FFFF"},
    ColourElementRow{ColourElement::LettersText, "menLettersText", "# &Letters Text", "# Letters text",
                     Setting::ColourLettersText, Setting::CustomLettersText, "&H00FF0000", "&H00FF0000"},
    ColourElementRow{ColourElement::GroupText, "menGroupText", "&Group Text", "Group text", Setting::ColourGroupText,
                     Setting::CustomGroupText, "&H00C000C0", "&H00C000C0"},
    ColourElementRow{ColourElement::WordChoiceText, "menWordChText", "&Word choice Text", "Word choice text",
                     Setting::ColourSelectionText, Setting::CustomSelectionText, "&H00C00000", "&H00C00000"},
    ColourElementRow{ColourElement::StatusText, "menStatusText", "&Status Text", "Status text",
                     Setting::ColourStatusText, Setting::CustomStatusText, "&H000000C0", "&H000000C0"},
    ColourElementRow{ColourElement::TimerText, "menTimerText", "T&imer Text", "Timer text", Setting::ColourTimerText,
                     Setting::CustomTimerText, "&H000080FF", "&H0000FFFF"},
};
static_assert(
    [] {
      for (size_t i = 0; i < kElements.size(); ++i) {
        if (kElements[i].element != static_cast<ColourElement>(i)) {
          return false;
        }
      }
      return true;
    }(),
    "the rows stand in the order of the elements");

constexpr std::array kResetOrder = {
    ColourElement::MainBack,    ColourElement::MainText,    ColourElement::WordChoiceText,
    ColourElement::StatusText,  ColourElement::TimerText,   ColourElement::LettersText,
    ColourElement::ResultsBack, ColourElement::ResultsText, ColourElement::GroupText,
};

constexpr std::array<ColourValue, kPaletteBoxes> kPalette = {
    0x000086, 0x008600, 0x008686, 0x860000,   0x860086,   0x868600,   0x000000,   0x606060, 0x0000C0, 0x00C000,
    0x00C0C0, 0xC00000, 0xC000C0, 0xC0C000,   0x808080,   0xA0A0A0,   0x0000FF,   0x00FF00, 0x00FFFF, 0xFF0000,
    0xFF00FF, 0xFFFF00, 0xC0C0C0, 0xD0D0D0,   0x8080FF,   0x80FF80,   0x80FFFF,   0xFF8080, 0xFF80FF, 0xFFFF80,
    0xE0E0E0, 0xFFFFFF, 0x000000, 0x8000000F, 0x80000002, 0x80000001, 0x80000005,
};

std::optional<uint32_t> ParseHex(std::string_view digits) {
  uint32_t value = 0;
  for (const char c : digits) {
    const auto digit = std::string_view("0123456789abcdef").find(static_cast<char>(c >= 'A' && c <= 'F' ? c + 32 : c));
    if (digit == std::string_view::npos) {
      return std::nullopt;
    }
    value = value * 16 + static_cast<uint32_t>(digit);
  }
  return value;
}

}  // namespace

std::optional<ColourValue> ParseColour(std::string_view text) {
  if (!text.starts_with("&H") || text.size() != 2 + kColourDigits) {
    return std::nullopt;
  }
  const auto value = ParseHex(text.substr(2));
  if (!value) {
    return std::nullopt;
  }
  const bool ordinary = *value <= 0xFFFFFFu;
  const bool system = (*value & ~0xFFu) == kSystemColourFlag;
  return ordinary || system ? value : std::nullopt;
}

std::string ColourText(ColourValue colour) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "&H%08X", colour);
  return text.data();
}

Rgb RgbOf(ColourValue colour) {
  return {static_cast<int>(colour & 0xFFu), static_cast<int>(colour >> 8 & 0xFFu),
          static_cast<int>(colour >> 16 & 0xFFu)};
}

std::string PadCustomColour(std::string_view text, std::string_view fallback) {
  if (text.empty() || text.size() > kCustomDigits || !ParseHex(text)) {
    text = fallback;
  }
  return std::string(kCustomDigits - std::min(kCustomDigits, text.size()), '0') + std::string(text);
}

Rgb RgbOfCustom(std::string_view sixDigits) {
  return RgbOf(ParseHex(sixDigits).value_or(0));
}

std::string CustomColourText(const Rgb& rgb) {
  return HexPair(rgb.blue) + HexPair(rgb.green) + HexPair(rgb.red);
}

std::string HexPair(int value) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%02X", static_cast<unsigned>(value) & 0xFFu);
  return text.data();
}

std::span<const ColourElementRow> ColourElements() {
  return kElements;
}

const ColourElementRow& RowOf(ColourElement element) {
  return kElements[static_cast<size_t>(element)];
}

std::span<const ColourElement> ResetOrder() {
  return kResetOrder;
}

std::span<const ColourValue, kPaletteBoxes> ColourPalette() {
  return kPalette;
}

}  // namespace quorvane
