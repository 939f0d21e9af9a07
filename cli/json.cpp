#include "cli/json.h"

#include <array>
#include <cstdio>

#include "base/text.h"

namespace quorvane::cli {
namespace {

std::string Format(const char* format, double value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

}  // namespace

void JsonObject::Key(std::string_view key) {
  line_ += first_ ? "" : ", ";
  first_ = false;
  AppendQuoted(key);
  line_ += ": ";
}

void JsonObject::AppendQuoted(std::string_view utf8) {
  line_ += '"';
  for (const char c : utf8) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      line_ += '\\';
      line_ += c;
    } else if (code < 0x20 || code == 0x7F) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(code));
      line_ += escape.data();
    } else {
      line_ += c;
    }
  }
  line_ += '"';
}

JsonObject& JsonObject::Text(std::string_view key, std::string_view bytes) {
  Key(key);
  AppendQuoted(Utf8FromBytes(bytes));
  return *this;
}

JsonObject& JsonObject::Path(std::string_view key, std::string_view bytes) {
  Key(key);
  AppendQuoted(IsUtf8(bytes) ? std::string(bytes) : Utf8FromBytes(bytes));
  return *this;
}

JsonObject& JsonObject::Json(std::string_view key, std::string_view value) {
  Key(key);
  line_ += value;
  return *this;
}

JsonObject& JsonObject::Number(std::string_view key, int64_t value) {
  Key(key);
  line_ += std::to_string(value);
  return *this;
}

JsonObject& JsonObject::Milliseconds(std::string_view key, double value) {
  Key(key);
  line_ += Format("%.4f", value);
  return *this;
}

JsonObject& JsonObject::Flag(std::string_view key, bool value) {
  Key(key);
  line_ += value ? "true" : "false";
  return *this;
}

JsonObject& JsonObject::Numbers(std::string_view key, std::span<const int32_t> values) {
  Key(key);
  line_ += '[';
  for (size_t i = 0; i < values.size(); ++i) {
    line_ += (i == 0 ? "" : ", ") + std::to_string(values[i]);
  }
  line_ += ']';
  return *this;
}

JsonObject& JsonObject::TextsIfAny(std::string_view key, const std::vector<std::string>& texts) {
  if (texts.empty()) {
    return *this;
  }
  BeginTexts(key);
  for (const std::string& text : texts) {
    Item(text);
  }
  return EndTexts();
}

JsonObject& JsonObject::BeginTexts(std::string_view key) {
  Key(key);
  line_ += '[';
  firstItem_ = true;
  return *this;
}

JsonObject& JsonObject::Item(std::string_view bytes) {
  line_ += firstItem_ ? "" : ", ";
  firstItem_ = false;
  AppendQuoted(Utf8FromBytes(bytes));
  return *this;
}

JsonObject& JsonObject::EndTexts() {
  line_ += ']';
  return *this;
}

}  // namespace quorvane::cli
