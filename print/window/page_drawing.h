// Drawing laid-out pages.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "print/page_layout.h"

class QPagedPaintDevice;
class QPainter;

namespace quorvane {

// The width of a text in twips, as it is drawn.
std::function<int(const std::string& text, const PrintFont& font)> TextRuler();

// Draws texts with a painter whose unit is the twip and whose origin is the sheet's corner.
void DrawTexts(QPainter& painter, std::span<const PlacedText> texts);

// Draws all pages on whole sheets; the place prefix of the error that stopped it, or null.
const char* DrawPages(QPagedPaintDevice& sheets, std::span<const PlacedText> pages);

}  // namespace quorvane
