#pragma once

#include "cli/arguments.h"

namespace quorvane::cli {

// Runs `find`; the exit status.
int Find(const FindArguments& arguments);

}  // namespace quorvane::cli
