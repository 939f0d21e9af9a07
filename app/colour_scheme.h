// Which controls of the main window show which element's colour.
#pragma once

#include <string>

#include "settings/colours.h"

namespace quorvane {

class MainWindow;

// Shows the colour ("&H" and eight digits) in every control of the element, at once.
void ApplyColour(MainWindow& window, ColourElement element, const std::string& colour);

}  // namespace quorvane
