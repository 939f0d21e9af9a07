#include "settings/window/light_palette.h"

#include <array>
#include <utility>

namespace quorvane {
namespace {

// The numbers of the platform-independent system colours and the roles they show as.
constexpr std::array kSystemRoles = {
    std::pair{0x01u, QPalette::Dark},       // Desktop
    std::pair{0x02u, QPalette::Highlight},  // Title of the active window
    std::pair{0x05u, QPalette::Base},       // Window background
    std::pair{0x06u, QPalette::Shadow},     // Window frame
    std::pair{0x08u, QPalette::Text},       // Window text
    std::pair{0x0Du, QPalette::Highlight},  std::pair{0x0Eu, QPalette::HighlightedText},
    std::pair{0x0Fu, QPalette::Button},  // Button face
    std::pair{0x10u, QPalette::Mid},     // Button shadow
    std::pair{0x12u, QPalette::ButtonText},
};

}  // namespace

QPalette LightPalette() {
  const QColor face(0xF0, 0xF0, 0xF0);
  QPalette palette(face, face);
  palette.setColor(QPalette::Window, face);
  palette.setColor(QPalette::WindowText, Qt::black);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xF7, 0xF7, 0xF7));
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Button, face);
  palette.setColor(QPalette::ButtonText, Qt::black);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Light, Qt::white);
  palette.setColor(QPalette::Midlight, QColor(0xE3, 0xE3, 0xE3));
  palette.setColor(QPalette::Mid, QColor(0xA0, 0xA0, 0xA0));
  palette.setColor(QPalette::Dark, QColor(0x69, 0x69, 0x69));
  palette.setColor(QPalette::Shadow, QColor(0x40, 0x40, 0x40));
  palette.setColor(QPalette::Highlight, QColor(0x2A, 0x6F, 0xBB));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE1));
  palette.setColor(QPalette::ToolTipText, Qt::black);
  palette.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80));
  const QColor grey(0x8A, 0x8A, 0x8A);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, grey);
  }
  return palette;
}

QColor ScreenColour(ColourValue colour) {
  if ((colour & kSystemColourFlag) == 0) {
    const Rgb rgb = RgbOf(colour);
    return {rgb.red, rgb.green, rgb.blue};
  }
  const QPalette palette = LightPalette();
  for (const auto& [number, role] : kSystemRoles) {
    if (number == (colour & ~kSystemColourFlag)) {
      return palette.color(role);
    }
  }
  return palette.color(QPalette::Window);
}

}  // namespace quorvane
