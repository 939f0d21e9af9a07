// Which letters of a found word the pattern itself names, and the words with these in bold.
#pragma once

#include <string>
#include <string_view>

#include "base/file.h"
#include "results/result_list.h"
#include "search/match.h"

namespace quorvane::cli {

class FixedLetters {
 public:
  FixedLetters(const PreparedPattern& prepared, const CharacterLists& lists);

  // A found word, `shown` in whatever letter case and `folded` in lower case, with the fixed letters in bold for a
  // terminal.
  std::string InBold(std::string_view shown, std::string_view folded);

 private:
  // For each character of the word whether the pattern has it at that place.
  std::string Marks(std::string_view folded);

  const PreparedPattern prepared_;
  WordTest wordTest_;
};

// Writes the words in bold, one a line.
void WriteInBold(FileWriter& out, const WordSequence& words, FixedLetters letters);

}  // namespace quorvane::cli
