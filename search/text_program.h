// What a pattern asks of the text of a word, as steps from character to character: the program of a pass over the text
// of many words (search/text_pass). Plain data, for it is read by code that is compiled for wider vectors.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvane {

// A set of letters, with 0x80 at those that it holds by the low half of their codes: of "a" to "o" and of "p" to "z".
struct TextSymbol {
  alignas(16) uint8_t aToO[16];
  alignas(16) uint8_t pToZ[16];
  bool single;  // One letter only, `letter`.
  char letter;
};

// The next character of the pattern: which symbol, and whether other characters may stand in front of it.
struct TextStep {
  uint8_t symbol;
  bool later;
};

struct TextProgram {
  static constexpr size_t kMostSymbols = 12;
  static constexpr size_t kMostSteps = 64;
  static constexpr unsigned kMostTimes = 4;

  TextSymbol symbols[kMostSymbols];
  size_t symbolCount = 0;
  TextStep steps[kMostSteps];
  size_t stepCount = 0;    // At least 1.
  bool fromStart = false;  // The first step is the word's first character.
  bool toEnd = false;      // The last step is the word's last character.
  // At how many places of the word the last step must arrive; a maximum of 0 is none.
  unsigned minTimes = 1;
  unsigned maxTimes = 0;
};

}  // namespace quorvane
