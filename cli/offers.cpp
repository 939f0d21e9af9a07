#include "cli/offers.h"

#include <iterator>
#include <sstream>

namespace quorvane::cli {
namespace {

// How the name of such a check begins; behind it stand the kind and the words.
constexpr const char* kMark = "offers";

}  // namespace

CLI::Validator Offers(const Offer& offer) {
  std::string name = kMark + (" " + std::to_string(static_cast<int>(offer.kind)));
  for (const std::string& word : offer.words) {
    name += " " + word;
  }
  return {[](std::string&) { return std::string(); }, "", name};
}

Offer OfferOf(CLI::Option& option) {
  try {
    for (int i = 0;; ++i) {
      std::istringstream words(option.get_validator(i)->get_name());
      std::string mark;
      int kind = 0;
      if (words >> mark >> kind && mark == kMark) {
        return {static_cast<OfferKind>(kind), Choices(std::istream_iterator<std::string>(words), {})};
      }
    }
  } catch (const CLI::OptionNotFound&) {  // There is no further check.
    return {};
  }
}

}  // namespace quorvane::cli
