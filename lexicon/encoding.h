// The encodings of word lists.
#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// The text of a list in UTF-8, without its mark: UTF-16 where a mark says so, UTF-8 where all of it is that, else
// Latin-1. What is no character in a marked list becomes U+FFFD. A view of `bytes` where they stand in UTF-8 already,
// else of `converted`.
std::string_view AsUtf8(std::string_view bytes, std::string& converted);

// `text`, which is UTF-8, shortened to at most `most` bytes without cutting a character.
std::string_view CutUtf8(std::string_view text, size_t most);

}  // namespace quorvane
