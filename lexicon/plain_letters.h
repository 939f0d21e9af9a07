// Letters without their accents.
#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

// Appends the letters "a" to "z" that a code point stands for: capitals and accents are folded, an accent that stands
// behind its letter adds nothing. False when there are none.
bool AppendPlain(int32_t codePoint, std::string& word);

}  // namespace quorvane
