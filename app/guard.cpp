#include "app/guard.h"

#include <new>

namespace quorvane {

bool Guarded(Services& services, QWidget* parent, std::string_view tried, const std::function<void()>& run) {
  try {
    run();
    return true;
  } catch (const std::bad_alloc&) {
    std::string name(tried);
    std::erase(name, '&');
    const std::string text = "There is not enough memory for this: " + name;
    services.door.Show(parent, text);
    services.log.Write(event::kError, text);
    return false;
  }
}

}  // namespace quorvane
