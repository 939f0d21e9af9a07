// `history`, and the searches of `find` that have a name. The command line writes no history.
#pragma once

#include <string>

#include "cli/arguments.h"

namespace quorvane::cli {

enum class HistoryForm { Lines, Json, Names };

// Lists the history of the program's directory, newest last; the exit status. Of names each once, but none with control
// characters, and no directory is made for them.
int ShowHistory(const std::string& dataDir, HistoryForm form);

// Puts the search named `arguments.named` in place of what is asked for; false, with a message, when there is none.
bool TakeNamed(FindArguments& arguments);

}  // namespace quorvane::cli
