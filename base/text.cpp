#include "base/text.h"

#include <array>
#include <cstring>

namespace quorvane {
namespace {

constexpr std::array<char16_t, 32> kUpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char Code(char c) {
  return static_cast<unsigned char>(c);
}

template <class Operation>
std::string Map(std::string_view text, Operation operation) {
  std::string result(text);
  for (char& c : result) {
    c = operation(c);
  }
  return result;
}

}  // namespace

char Fold(char c) {
  const unsigned char code = Code(c);
  const bool folds = (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7);
  return folds ? static_cast<char>(code + 0x20) : c;
}

char Upper(char c) {
  const unsigned char code = Code(c);
  const bool folds = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
  return folds ? static_cast<char>(code - 0x20) : c;
}

std::string FoldText(std::string_view text) {
  return Map(text, Fold);
}

std::string UpperText(std::string_view text) {
  return Map(text, Upper);
}

char16_t CodePointOf(char c) {
  const unsigned char code = Code(c);
  return code >= 0x80 && code <= 0x9F ? kUpperControls[code - 0x80u] : static_cast<char16_t>(code);
}

char ByteOf(char32_t codePoint, char substitute) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
    return static_cast<char>(codePoint);
  }
  for (unsigned i = 0; i < kUpperControls.size(); ++i) {
    if (kUpperControls[i] == codePoint) {
      return static_cast<char>(0x80u + i);
    }
  }
  return substitute;
}

int32_t NextCodePoint(std::string_view text, size_t& i) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char first = byte(i++);
  if (first < 0x80) {
    return first;
  }
  const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : -1;
  if (more < 0 || first > 0xF4) {
    return -1;
  }
  int32_t codePoint = first & (0x3F >> more);
  for (int k = 0; k < more; ++k) {
    if (i >= text.size() || (byte(i) & 0xC0) != 0x80) {
      return -1;
    }
    codePoint = (codePoint << 6) | (byte(i++) & 0x3F);
  }
  constexpr std::array kLeast = {0, 0x80, 0x800, 0x10000};  // By the bytes that follow the first.
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  return codePoint < kLeast[static_cast<size_t>(more)] || surrogate || codePoint > 0x10FFFF ? -1 : codePoint;
}

bool IsUtf8(std::string_view text) {
  constexpr uint64_t kTopBits = 0x8080808080808080u;
  for (size_t i = 0; i < text.size();) {
    uint64_t eight = kTopBits;
    if (i + sizeof eight <= text.size()) {
      std::memcpy(&eight, text.data() + i, sizeof eight);
    }
    if ((eight & kTopBits) == 0) {
      i += sizeof eight;
    } else if (NextCodePoint(text, i) < 0) {
      return false;
    }
  }
  return true;
}

std::string Utf8FromBytes(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char c : bytes) {
    const unsigned codePoint = CodePointOf(c);
    if (codePoint < 0x80) {
      utf8 += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
      utf8 += static_cast<char>(0xC0u | (codePoint >> 6));
      utf8 += static_cast<char>(0x80u | (codePoint & 0x3Fu));
    } else {
      utf8 += static_cast<char>(0xE0u | (codePoint >> 12));
      utf8 += static_cast<char>(0x80u | ((codePoint >> 6) & 0x3Fu));
      utf8 += static_cast<char>(0x80u | (codePoint & 0x3Fu));
    }
  }
  return utf8;
}

bool InClass(std::string_view characterClass, char c) {
  const size_t end = characterClass.find(']');
  if (characterClass.empty() || characterClass.front() != '[' || end == std::string_view::npos) {
    return false;
  }
  std::string_view body = characterClass.substr(1, end - 1);
  const bool inverted = !body.empty() && body.front() == '!';
  if (inverted) {
    body.remove_prefix(1);
  }
  bool listed = false;
  for (size_t i = 0; i < body.size(); ++i) {
    if (i + 2 < body.size() && body[i + 1] == '-') {
      listed = listed || (Code(body[i]) <= Code(c) && Code(c) <= Code(body[i + 2]));
      i += 2;
    } else {
      listed = listed || body[i] == c;
    }
  }
  return inverted ? !listed : listed;
}

std::string KeepLetters(std::string_view text, bool tiles, bool repeats) {
  std::string kept;
  for (const char c : text) {
    const bool allowed = IsLetter(c) || (tiles && (c == '?' || c == '-'));
    if (allowed && (repeats || kept.find(c) == std::string::npos)) {
      kept += c;
    }
  }
  return kept;
}

std::string QuotedText(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string quoted;
  for (const char c : text.substr(0, kMostQuoted)) {
    if (Code(c) < 0x20 || Code(c) == 0x7F) {
      quoted += {'\\', 'x', kDigits[Code(c) >> 4], kDigits[Code(c) & 15u]};
    } else {
      quoted += c;
    }
  }
  return quoted;
}

std::string FormatThousands(int64_t number) {
  std::string digits = std::to_string(number < 0 ? -number : number);
  for (size_t from = digits.size(); from > 3; from -= 3) {
    digits.insert(from - 3, 1, ',');
  }
  return number < 0 ? "-" + digits : digits;
}

bool ParseInteger(std::string_view text, int& value) {
  while (!text.empty() && text.front() == ' ') {
    text.remove_prefix(1);
  }
  while (!text.empty() && text.back() == ' ') {
    text.remove_suffix(1);
  }
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty() || text.size() > 9) {
    return false;
  }
  int number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) {
      return false;
    }
    number = number * 10 + (c - '0');
  }
  value = negative ? -number : number;
  return true;
}

}  // namespace quorvane
