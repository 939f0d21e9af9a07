// The light palette that the main window keeps on every desktop, and what system colours show as in it.
#pragma once

#include <QPalette>

#include "settings/colours.h"

namespace quorvane {

QPalette LightPalette();

// An ordinary colour as it is; a system colour as the role of the light palette that it stands for.
QColor ScreenColour(ColourValue colour);

}  // namespace quorvane
