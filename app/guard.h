// The door of every command: what a shortage of memory does there.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/services.h"

namespace quorvane {

// Runs what was asked for. Where memory runs short on the way it is given up, and a message says what was tried. False
// when it was.
bool Guarded(Services& services, QWidget* parent, std::string_view tried, const std::function<void()>& run);

}  // namespace quorvane
