#include "app/start/shut_down.h"

namespace quorvane {
namespace {

constexpr const char* kClosing = "Closing application";

}  // namespace

void ShutDown(Services& services, Session& session) {
  if (session.ended) {
    return;
  }
  session.ended = true;
  if (const auto error = services.log.Write(event::kShutDown, kClosing)) {
    const std::string number = std::to_string(error->error.number);
    services.log.Write(event::kFileError, "Error " + number + " (" + error->error.description + ") in flag file");
    if (const auto again = services.log.Write(event::kShutDown, kClosing)) {
      services.door.Show(nullptr, "Error " + std::to_string(again->error.number) +
                                      " while closing flag file - termination in progress");
    }
  }
  services.log.Close();
  services.endProcess(session.exitStatus);
}

}  // namespace quorvane
