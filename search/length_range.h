// The range of word lengths that a search asks for.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// `any` when no range is chosen.
struct LengthRange {
  bool any = true;
  int min = 1;
  int max = 8;
};

inline constexpr std::string_view kLengthOption = "length";  // On the command line, without its dashes.

// "5" or "5-8", whether a range is chosen or not.
std::string LengthText(const LengthRange& lengths);
// Reads such a text; false when it is none.
bool ReadLengths(std::string_view text, LengthRange& lengths);

}  // namespace quorvane
