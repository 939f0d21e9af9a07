#include "search/length_range.h"

#include "base/text.h"

namespace quorvane {

std::string LengthText(const LengthRange& lengths) {
  const std::string from = std::to_string(lengths.min);
  return lengths.min == lengths.max ? from : from + "-" + std::to_string(lengths.max);
}

bool ReadLengths(std::string_view text, LengthRange& lengths) {
  const size_t dash = text.find('-');
  const std::string_view to = dash == std::string_view::npos ? text : text.substr(dash + 1);
  lengths.any = false;
  return ParseInteger(text.substr(0, dash), lengths.min) && ParseInteger(to, lengths.max) && lengths.min >= 1 &&
         lengths.min <= lengths.max;
}

}  // namespace quorvane
