#include "lookup/resources.h"

#include <array>

namespace quorvane {
namespace {

constexpr auto kResources = std::to_array<LookupResource>({
    {"Merriam-Webster", "Merriam-Webster (dictionary)",
     "http://www.merriam-webster.com/cgi-bin/dictionary?book=Dictionary&va=", "&x=15&y=12"},
    {"Dictionary.com (dictionary)", "Dictionary.com (dictionary)", "http://dictionary.reference.com/search?q=", ""},
    {"Dictionary.com (thesaurus)", "Dictionary.com (thesaurus)", "http://thesaurus.reference.com/search?q=", ""},
    {"The Free Dictionary", "The Free Dictionary", "http://www.thefreedictionary.com/search.aspx?define=", ""},
    {"Google Search", "Google search", "http://www.google.com/search?hl=en&q=", "&x=15&y=12"},
});
static_assert(kResources.size() <= 9, "the setting is one digit");

}  // namespace

std::span<const LookupResource> LookupResources() {
  return kResources;
}

const LookupResource* FindLookupResource(std::string_view setting) {
  const size_t index = setting.size() == 1 ? static_cast<size_t>(setting[0] - '1') : kResources.size();
  return index < kResources.size() ? &kResources[index] : nullptr;
}

std::optional<std::string> LookupAddress(std::string_view setting, std::string_view word) {
  const LookupResource* resource = FindLookupResource(setting);
  if (resource == nullptr) {
    return std::nullopt;
  }
  return std::string(resource->address) + std::string(word) + std::string(resource->tail);
}

}  // namespace quorvane
