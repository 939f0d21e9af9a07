// Where each word starts in a text: where a group of words starts, and how far behind that each of them does. Two bytes
// a word, half of what whole numbers take.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/big_buffer.h"

namespace quorvane {

class WordStarts {
 public:
  static constexpr size_t kGroup = 512;
  // What lies that far, in bytes, behind the first word of its group can't be kept.
  static constexpr size_t kMostApart = size_t{1} << 16;

  WordStarts() = default;
  // Room for the words with the numbers 0 to `words - 1`, which start at 0.
  explicit WordStarts(size_t words) : groups_(words / kGroup + 1), offsets_(words) {}

  // Writes the starts of `count` words from `first` on, in bytes. What stands in front of `first` in its group is
  // written already.
  void Write(size_t first, const uint32_t* starts, size_t count);

  uint32_t operator[](size_t word) const { return groups_[word / kGroup] + offsets_[word]; }
  // Has the processor fetch what says where a word starts.
  void Fetch(size_t word) const { FetchEarly(&offsets_[word]); }

 private:
  BigBuffer<uint32_t> groups_;
  BigBuffer<uint16_t> offsets_;
};

}  // namespace quorvane
