// The values that an option takes by name.
#pragma once

#include <string>
#include <vector>

namespace quorvane::cli {

using Choices = std::vector<std::string>;

// The options' names in a table whose rows have one.
template <class Rows>
Choices ChoicesOf(const Rows& rows) {
  Choices choices;
  for (const auto& row : rows) {
    choices.emplace_back(row.option);
  }
  return choices;
}

// "word, palindrome, anagram and exact".
std::string Listed(const Choices& choices, const std::string& conjunction);

}  // namespace quorvane::cli
