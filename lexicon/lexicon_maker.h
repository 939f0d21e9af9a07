// Makes a lexicon of plain word lists.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file.h"

namespace quorvane {

// Why a line gave no word.
enum class LeftOut { Empty, TooLong, OtherCharacters, Repeated };
inline constexpr size_t kLeftOutReasons = 4;
std::string_view DescriptionOf(LeftOut reason);

struct LeftOutLines {
  int64_t count = 0;
  std::vector<std::string> examples;  // The first three.
};

// Collects words from lists with LF or CR LF, in UTF-8 (with or without a byte-order mark) or Latin-1, in any order and
// case. Of each line the first column counts, to the first blank, tab, comma or semicolon; case and accents are folded
// to a-z.
class LexiconMaker {
 public:
  void AddList(std::string_view bytes);

  int64_t LinesRead() const { return linesRead_; }
  const LeftOutLines& Left(LeftOut reason) const { return leftOut_[static_cast<size_t>(reason)]; }

  // Sorts and removes repeats; the words in order.
  const std::vector<std::string>& Finish();

 private:
  void AddLine(std::string_view line, bool utf8);
  void LeaveOut(LeftOut reason, std::string_view line);

  int64_t linesRead_ = 0;
  std::array<LeftOutLines, kLeftOutReasons> leftOut_;
  std::vector<std::string> words_;
};

// Writes one word a line, each ended by CR LF; whole or not at all.
std::optional<FileError> WriteLexiconFile(const std::string& path, const std::vector<std::string>& words);

}  // namespace quorvane
