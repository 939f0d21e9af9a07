#include "cli/choices.h"

namespace quorvane::cli {

std::string Listed(const Choices& choices, const std::string& conjunction) {
  std::string text;
  for (size_t i = 0; i < choices.size(); ++i) {
    text += (i == 0 ? "" : i + 1 < choices.size() ? ", " : " " + conjunction + " ") + choices[i];
  }
  return text;
}

}  // namespace quorvane::cli
