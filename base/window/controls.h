// What every control is given: its name, and what it says of itself.
#pragma once

#include <QString>

namespace quorvane {

// A control's name, tooltip and description.
template <class Control>
Control* Named(Control* control, const QString& name, const QString& toolTip = {}) {
  control->setObjectName(name);
  if (!toolTip.isEmpty()) {
    control->setToolTip(toolTip);
    control->setAccessibleDescription(toolTip);
  }
  return control;
}

// A control's name and, for a screen reader only, what it is.
template <class Control>
Control* Described(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleDescription(description);
  return control;
}

}  // namespace quorvane
