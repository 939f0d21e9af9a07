// Where the filter leaves many words, their whole text is asked at once: a pass over it, 64 characters at a time with
// vectors of 32 or 64 bytes, whichever the machine has. Without them there is none, and each word is looked at by
// itself (search/verify).
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "base/vector_width.h"
#include "lexicon/lexicon.h"
#include "search/filter.h"
#include "search/text_program.h"
#include "search/verify_plan.h"

namespace quorvane {

// Appends a bit to `bits`, from bit `firstBit` (below 64) of the first element on, for each line of `text` up to `end`:
// whether the program fits the word in it. A line ends with a line feed, in front of which a CR may stand; the
// character in front of `end` ends a line, whatever it is. What the bit of a line with other characters than lower-case
// letters says means nothing. The text is read in whole 64 bytes
// on their boundaries; `bits` has room for a bit a line and for 64 more.
using TextPassKernel = void (*)(const TextProgram& program, const char* text, const char* end, unsigned firstBit,
                                uint64_t* bits);

// `width` is no wider than the machine's. Null for the base: its vectors are too short to gain by a pass.
TextPassKernel TextPassKernelFor(VectorWidth width);

class TextPass {
 public:
  // The question as a program; nothing where it is too long for one.
  static std::optional<TextProgram> Compile(const TextQuestion& question);

  TextPass(const TextQuestion& question, VectorWidth vectors);

  // Whether there is a pass, and it costs less than a look at each survivor, which takes it as long as so many words.
  bool IsWorth(const Survivors& survivors, size_t wordsOfALook) const;
  // Keeps of the survivors those that fit, and of those with other characters than letters those that `fits`.
  void Keep(const Lexicon& lexicon, Survivors& survivors, const std::function<bool(std::string_view word)>& fits) const;

 private:
  const TextPassKernel kernel_;  // Null where the machine has none.
  const std::optional<TextProgram> program_;
};

}  // namespace quorvane
