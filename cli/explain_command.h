#pragma once

#include "cli/arguments.h"

namespace quorvane::cli {

// Prints what the input check and the preparation make of a pattern: typed one character at a time, or pasted. The exit
// status.
int Explain(const SearchArguments& arguments, bool paste);

}  // namespace quorvane::cli
