// The five on-line resources that a found word can be looked up in.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

inline constexpr size_t kLookupResources = 5;

struct LookupResource {
  std::string_view label;          // Beside the look-up button.
  std::string_view optionCaption;  // In the window that offers the choice.
  std::string_view address;        // Up to the word.
  std::string_view tail;           // Behind the word.
};

// The resource that the setting's value "1" to "5" chooses; null for any other value.
const LookupResource* FindLookupResource(std::string_view setting);

// The address of a word, whose bytes stand in it as they are; nothing for a setting that chooses no resource.
std::optional<std::string> LookupAddress(std::string_view setting, std::string_view word);

}  // namespace quorvane
