// The on-line resources that a found word can be looked up in.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quorvane {

struct LookupResource {
  std::string_view label;          // Beside the look-up button.
  std::string_view optionCaption;  // In the window that offers the choice.
  std::string_view address;        // Up to the word.
  std::string_view tail;           // Behind the word.
};

// In the order of the setting's values, "1" for the first.
std::span<const LookupResource> LookupResources();

// The resource that the setting's value chooses; null for any other value.
const LookupResource* FindLookupResource(std::string_view setting);

// The address of a word, whose bytes stand in it as they are; nothing for a setting that chooses no resource.
std::optional<std::string> LookupAddress(std::string_view setting, std::string_view word);

}  // namespace quorvane
