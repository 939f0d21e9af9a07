// The single way out.
#pragma once

#include "app/services.h"
#include "app/session.h"

namespace quorvane {

// Writes the last log entry, closes the log and ends the process. A failure is logged and tried once more; a second one
// is shown. Runs once; in the program it does not return to the event loop's work.
void ShutDown(Services& services, Session& session);

}  // namespace quorvane
