// One JSON object on one line.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::cli {

class JsonObject {
 public:
  JsonObject& Text(std::string_view key, std::string_view bytes);  // 8-bit characters, read as Windows-1252.
  JsonObject& Path(std::string_view key, std::string_view bytes);  // A path: as it stands where it is UTF-8.
  JsonObject& Json(std::string_view key, std::string_view value);  // What is JSON already.
  JsonObject& Number(std::string_view key, int64_t value);
  JsonObject& Milliseconds(std::string_view key, double value);
  JsonObject& Flag(std::string_view key, bool value);
  JsonObject& Numbers(std::string_view key, std::span<const int32_t> values);

  // A list of texts; nothing when there are none.
  JsonObject& TextsIfAny(std::string_view key, const std::vector<std::string>& texts);

  // A list of texts, one at a time: BeginTexts, Item..., EndTexts.
  JsonObject& BeginTexts(std::string_view key);
  JsonObject& Item(std::string_view bytes);
  JsonObject& EndTexts();

  // The object with a line end.
  std::string Line() const { return line_ + "}\n"; }

 private:
  void Key(std::string_view key);
  void AppendQuoted(std::string_view utf8);

  std::string line_ = "{";
  bool first_ = true;
  bool firstItem_ = true;
};

}  // namespace quorvane::cli
