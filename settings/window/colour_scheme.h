// The colours of a window: which control shows which element, said by whoever makes the control, and the showing.
#pragma once

#include <QColor>
#include <map>
#include <string>

#include "settings/colours.h"

class QWidget;

namespace quorvane {

// How a control shows a colour.
enum class ColourUse {
  Text,          // Of a label, a button, a box.
  Title,         // Of a frame; the lists and the marks of the choices inside keep their own.
  Background,    // Of a window.
  ReadableText,  // Black or white, whichever is read better on the colour.
  ListText,
  ListBackground,
  Swatch,  // A ColourSwatch filled with it.
};

// From now on the control shows the element's colour in that use.
void ShowsColour(QWidget* control, ColourElement element, ColourUse use = ColourUse::Text);

class ColourScheme {
 public:
  // `window` and the controls in it are asked what they show; it outlives the scheme.
  explicit ColourScheme(QWidget& window) : window_(window) {}

  // Shows the colour ("&H" and eight digits) in every control of the element, at once.
  void Apply(ColourElement element, const std::string& colour);
  // As applied last; black before.
  std::string Colour(ColourElement element) const;

 private:
  QWidget& window_;
  std::map<ColourElement, std::string> colours_;
};

}  // namespace quorvane
