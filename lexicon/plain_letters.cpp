#include "lexicon/plain_letters.h"

#include <iterator>
#include <string_view>

#include "base/text.h"

namespace quorvane {
namespace {

// The plain letters of U+00C0 to U+017F, in order; "?" where there are none.
constexpr std::string_view kPlainLetters[] = {
    // U+00C0
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i", "i", "d", "n", "o", "o", "o", "o", "o",
    "?", "o", "u", "u", "u", "u", "y", "th", "ss",
    // U+00E0
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i", "i", "d", "n", "o", "o", "o", "o", "o",
    "?", "o", "u", "u", "u", "u", "y", "th", "y",
    // U+0100
    "a", "a", "a", "a", "a", "a", "c", "c", "c", "c", "c", "c", "c", "c", "d", "d", "d", "d", "e", "e", "e", "e", "e",
    "e", "e", "e", "e", "e", "g", "g", "g", "g", "g", "g", "g", "g", "h", "h", "h", "h", "i", "i", "i", "i", "i", "i",
    "i", "i", "i", "i", "ij", "ij", "j", "j", "k", "k", "k", "l", "l", "l", "l", "l", "l", "l",
    // U+0140
    "l", "l", "l", "n", "n", "n", "n", "n", "n", "n", "n", "n", "o", "o", "o", "o", "o", "o", "oe", "oe", "r", "r", "r",
    "r", "r", "r", "s", "s", "s", "s", "s", "s", "s", "s", "t", "t", "t", "t", "t", "t", "u", "u", "u", "u", "u", "u",
    "u", "u", "u", "u", "u", "u", "w", "w", "y", "y", "y", "z", "z", "z", "z", "z", "z", "s"};
static_assert(std::size(kPlainLetters) == 0x180 - 0xC0);
// The same of U+0180 to U+024F and of U+1E00 to U+1EFF: one letter each.
constexpr std::string_view kPlainFrom180 =
    "????????????????????????????????oo?????????????uu????????????????????????????aai"
    "ioouuuuuuuuuu?aaaa????ggkkoooo??j???gg??nnaa????aaaaeeeeiiiioooorrrruuuusstt??hh"
    "??????aaeeooooooooyy????????????????????????????";
constexpr std::string_view kPlainFrom1E00 =
    "aabbbbbbccddddddddddeeeeeeeeeeffgghhhhhhhhhhiiiikkkkkkllllllllmmmmmmnnnnnnnnoooo"
    "oooopppprrrrrrrrssssssssssttttttttuuuuuuuuuuvvvvwwwwwwwwwwxxxxyyzzzzzzhtwy??????"
    "aaaaaaaaaaaaaaaaaaaaaaaaeeeeeeeeeeeeeeeeiiiioooooooooooooooooooooooouuuuuuuuuuuu"
    "uuyyyyyyyy??????";
static_assert(kPlainFrom180.size() == 0x250 - 0x180 && kPlainFrom1E00.size() == 0x1F00 - 0x1E00);
constexpr int32_t kCapitalSharpS = 0x1E9E;

// The plain letters of a code point from U+00C0 on; "?" where there are none.
std::string_view PlainLetters(int32_t codePoint) {
  if (codePoint < 0x180) {
    return kPlainLetters[codePoint - 0xC0];
  }
  if (codePoint < 0x250) {
    return kPlainFrom180.substr(static_cast<size_t>(codePoint - 0x180), 1);
  }
  if (codePoint == kCapitalSharpS) {
    return "ss";
  }
  const bool inTable = codePoint >= 0x1E00 && codePoint < 0x1F00;
  return inTable ? kPlainFrom1E00.substr(static_cast<size_t>(codePoint - 0x1E00), 1) : "?";
}

}  // namespace

bool AppendPlain(int32_t codePoint, std::string& word) {
  if (codePoint < 0x80) {
    const char c = Fold(static_cast<char>(codePoint));
    word += c;
    return IsLetter(c);
  }
  if (codePoint >= 0x300 && codePoint <= 0x36F) {  // An accent that stands behind its letter.
    return true;
  }
  const std::string_view letters = codePoint < 0xC0 ? "?" : PlainLetters(codePoint);
  if (letters == "?") {
    return false;
  }
  word += letters;
  return true;
}

}  // namespace quorvane
