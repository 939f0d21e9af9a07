// A search as JSON, both ways: the keys are named as the options of the command line.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "search/search.h"

namespace quorvane {

using Json = nlohmann::json;

inline constexpr const char* kPatternKey = "pattern";

// Adds the keys of a search to an object. Its texts are 8-bit characters, in JSON UTF-8. Conditions stand by kind, in
// an array each; which kind was given first is not told.
void PutSearch(const Search& search, Json& object);

// The search of an object; what is not there is as in a new search. Nothing when a value is of another kind, names no
// type or no length, or holds a character that no 8-bit text has.
std::optional<Search> SearchOf(const Json& object);

// Whether PutSearch may have put the key there.
bool IsSearchKey(std::string_view key);

// The value of a text that may be missing: `text` is then left alone. False when it is no text.
bool TakeText(const Json& object, const char* key, std::string& text);

// The 8-bit text of a UTF-8 one, as Utf8FromBytes makes it; nothing when some character has none.
std::optional<std::string> BytesFromUtf8(std::string_view utf8);

}  // namespace quorvane
