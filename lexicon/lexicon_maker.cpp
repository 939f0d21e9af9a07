#include "lexicon/lexicon_maker.h"

#include <algorithm>

#include "base/text.h"
#include "lexicon/lexicon.h"

namespace quorvane {
namespace {

constexpr size_t kExamples = 3;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

// Appends the plain form of one code point; false when it has none.
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

}  // namespace

std::string_view DescriptionOf(LeftOut reason) {
  switch (reason) {
    case LeftOut::Empty:
      return "empty";
    case LeftOut::TooLong:
      return "longer than 90 characters";
    case LeftOut::OtherCharacters:
      return "with characters other than letters";
    case LeftOut::Repeated:
      break;
  }
  return "repeated";
}

void LexiconMaker::AddList(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) {
    bytes.remove_prefix(kByteOrderMark.size());
  }
  const bool utf8 = IsUtf8(bytes);
  while (!bytes.empty()) {
    const size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    AddLine(line, utf8);
  }
}

void LexiconMaker::AddLine(std::string_view line, bool utf8) {
  ++linesRead_;
  const std::string_view column = line.substr(0, line.find_first_of(" \t,;"));
  if (column.empty()) {
    LeaveOut(LeftOut::Empty, line);
    return;
  }
  std::string word;
  for (size_t i = 0; i < column.size();) {
    const int32_t codePoint = utf8 ? NextCodePoint(column, i) : static_cast<unsigned char>(column[i++]);
    if (!AppendPlain(codePoint, word)) {
      LeaveOut(LeftOut::OtherCharacters, column);
      return;
    }
  }
  if (word.empty() || word.size() > static_cast<size_t>(kMaxWordLength)) {
    LeaveOut(word.empty() ? LeftOut::Empty : LeftOut::TooLong, column);
    return;
  }
  words_.push_back(std::move(word));
}

void LexiconMaker::LeaveOut(LeftOut reason, std::string_view line) {
  LeftOutLines& lines = leftOut_[static_cast<size_t>(reason)];
  ++lines.count;
  if (lines.examples.size() < kExamples) {
    lines.examples.emplace_back(line);
  }
}

const std::vector<std::string>& LexiconMaker::Finish() {
  std::sort(words_.begin(), words_.end());
  size_t kept = 0;
  for (size_t i = 0; i < words_.size(); ++i) {
    if (kept > 0 && words_[i] == words_[kept - 1]) {
      LeaveOut(LeftOut::Repeated, words_[i]);
    } else {
      if (kept != i) {
        words_[kept] = std::move(words_[i]);
      }
      ++kept;
    }
  }
  words_.resize(kept);
  return words_;
}

std::optional<FileError> WriteLexiconFile(const std::string& path, const std::vector<std::string>& words) {
  return ReplaceFile(path, [&words](FileWriter& out) {
    for (const std::string& word : words) {
      out.Write(word);
      out.Write("\r\n");
    }
  });
}

}  // namespace quorvane
