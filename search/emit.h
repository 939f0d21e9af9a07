// The last of a scan's three steps: emit. Turns bits into word numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "lexicon/lexicon.h"
#include "search/filter.h"

namespace quorvane {

// The numbers of the words found, in the order found. Keeps its memory from one search to the next.
class FoundNumbers {
 public:
  size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  WordNumber operator[](size_t i) const { return numbers_[i]; }
  WordNumber& operator[](size_t i) { return numbers_[i]; }
  std::span<const WordNumber> Span() const { return {numbers_.data(), size_}; }

  void Clear() { size_ = 0; }
  void Resize(size_t size) {
    Reserve(size);
    size_ = size;
  }
  void Add(WordNumber number) {
    Reserve(size_ + 1);
    numbers_[size_++] = number;
  }
  // Makes room for `size` numbers and for the few that Emit may write behind the last.
  void Reserve(size_t size);
  // The same, and has the system hand out the memory now instead of while a search writes it.
  void MakeReady(size_t size);

 private:
  friend void Emit(const Survivors&, FoundNumbers&);

  BigBuffer<WordNumber> numbers_;
  size_t size_ = 0;
};

// Appends the numbers of the survivors.
void Emit(const Survivors& survivors, FoundNumbers& found);

}  // namespace quorvane
