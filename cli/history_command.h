// `history`, and the searches of `find` that have a name. The command line writes no history.
#pragma once

#include <string>

#include "cli/arguments.h"

namespace quorvane::cli {

// Lists the history of the program's directory, newest last; the exit status.
int ShowHistory(const std::string& dataDir, bool json);

// Puts the search named `arguments.named` in place of what is asked for; false, with a message, when there is none.
bool TakeNamed(FindArguments& arguments);

}  // namespace quorvane::cli
