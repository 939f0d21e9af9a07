// Helpers for 8-bit text. One byte is one character; where a byte is shown, it is read as Windows-1252. Nothing here
// depends on the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

// Lower case: A-Z become a-z and 0xC0-0xDE (without 0xD7) become 0xE0-0xFE; every other byte is itself.
char Fold(char c);
// The inverse of Fold: a-z become A-Z and 0xE0-0xFE (without 0xF7) become 0xC0-0xDE.
char Upper(char c);
std::string FoldText(std::string_view text);
std::string UpperText(std::string_view text);

// True for A-Z and a-z only.
constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The code point that a byte of Windows-1252 stands for; its five undefined bytes stand for U+0081, U+008D, U+008F,
// U+0090 and U+009D.
char16_t CodePointOf(char c);
// The byte of a code point, or `substitute` when Windows-1252 has none.
char ByteOf(char32_t codePoint, char substitute = '?');
std::string Utf8FromBytes(std::string_view bytes);

// The next code point of `text` from `i` on, which is moved past it; -1 when the bytes are not UTF-8.
int32_t NextCodePoint(std::string_view text, size_t& i);
bool IsUtf8(std::string_view text);

// Whether `c` is in the class "[...]": one of the listed characters or within a listed range "x-y" (inclusive); a
// leading "!" inverts, a "-" first is an ordinary character, "[]" holds nothing. Comparison is by character code. The
// class ends at its first "]"; text that is no class holds nothing.
bool InClass(std::string_view characterClass, char c);

// The letters of a text, and its "?" and "-" where `tiles` says so; without later occurrences of a character unless
// `repeats` (case counts: "aA" holds no repeat).
std::string KeepLetters(std::string_view text, bool tiles, bool repeats);

// A piece of a file as a message quotes it: at most 200 characters, control characters written as "\\x0A".
std::string QuotedText(std::string_view text);
inline constexpr size_t kMostQuoted = 200;

// "" for one, "s" for every other count.
inline std::string_view PluralS(int64_t count) {
  return count == 1 ? "" : "s";
}
// Thousands separated by commas, as in "1,234,567".
std::string FormatThousands(int64_t number);
// A whole decimal number with an optional sign and surrounding blanks; false for anything else or over 9 digits.
bool ParseInteger(std::string_view text, int& value);

}  // namespace quorvane
