#include "lexicon/encoding.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "base/text.h"

namespace quorvane {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr size_t kUnit = 2;  // Bytes of the smallest character of UTF-16.

struct Utf16 {
  std::string_view mark;
  const char* name;
};
constexpr std::array kUtf16 = {Utf16{"\xFF\xFE"sv, "UTF-16LE"}, Utf16{"\xFE\xFF"sv, "UTF-16BE"}};

struct CloseConverter {
  void operator()(void* converter) const noexcept { iconv_close(converter); }
};

// UTF-16 in UTF-8. A system that lacks the conversion answers as if no character were one.
std::string FromUtf16(const char* encoding, std::string_view bytes) {
  const iconv_t opened = iconv_open("UTF-8", encoding);
  const bool missing = opened == reinterpret_cast<iconv_t>(-1);
  const std::unique_ptr<void, CloseConverter> converter(missing ? nullptr : opened);
  std::string utf8;
  std::array<char, 1 << 16> piece;
  std::string input(bytes);  // The C library wants it writable.
  char* from = input.data();
  size_t left = input.size();
  while (left > 0) {
    char* to = piece.data();
    size_t room = piece.size();
    errno = 0;
    const bool stopped = missing || iconv(converter.get(), &from, &left, &to, &room) == static_cast<size_t>(-1);
    utf8.append(piece.data(), to);
    if (stopped && errno != E2BIG) {
      utf8 += kReplacement;
      const size_t skipped = std::min(left, kUnit);
      from += skipped;
      left -= skipped;
    }
  }
  return utf8;
}

std::string FromLatin1(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0u | (code >> 6));
      utf8 += static_cast<char>(0x80u | (code & 0x3Fu));
    }
  }
  return utf8;
}

}  // namespace

std::string_view AsUtf8(std::string_view bytes, std::string& converted) {
  for (const Utf16& utf16 : kUtf16) {
    if (bytes.starts_with(utf16.mark)) {
      return converted = FromUtf16(utf16.name, bytes.substr(utf16.mark.size()));
    }
  }
  if (bytes.starts_with(kUtf8Mark)) {
    bytes.remove_prefix(kUtf8Mark.size());
  }
  return IsUtf8(bytes) ? bytes : std::string_view(converted = FromLatin1(bytes));
}

std::string_view CutUtf8(std::string_view text, size_t most) {
  if (text.size() <= most) {
    return text;
  }
  while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0u) == 0x80u) {
    --most;
  }
  return text.substr(0, most);
}

}  // namespace quorvane
