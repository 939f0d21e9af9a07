// One line of a stream: a search with what is wanted of its words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/arguments.h"

namespace quorvane::cli {

struct Request {
  std::string id;                      // As JSON; empty without one.
  FindArguments find;                  // Settled, unless there is a problem.
  std::optional<uint32_t> seed;        // Of the random words from here on.
  std::optional<std::string> problem;  // Why the line can't be read.
};

// A JSON object, which a line is that begins with "{", or a bare pattern. The object's keys are named as the options of
// `find`, and each takes the place of that option in `usual`.
Request ReadRequest(std::string_view line, const FindArguments& usual);

}  // namespace quorvane::cli
