// Memory for the lexicon's large arrays.
#pragma once

#include <cstddef>
#include <memory>

namespace quorvane {

// `bytes` of zeroed memory, of which only touched pages are resident; large blocks ask the system for huge pages,
// which halves the time to read them. Throws std::bad_alloc.
void* AllocateBig(size_t bytes);
void FreeBig(void* memory) noexcept;

struct FreeBigMemory {
  void operator()(void* memory) const noexcept { FreeBig(memory); }
};

// An owning array of trivial elements.
template <class T>
class BigBuffer {
 public:
  BigBuffer() = default;
  explicit BigBuffer(size_t size) : memory_(static_cast<T*>(AllocateBig(size * sizeof(T)))), size_(size) {}

  T* data() { return memory_.get(); }
  const T* data() const { return memory_.get(); }
  size_t size() const { return size_; }
  T& operator[](size_t i) { return memory_.get()[i]; }
  const T& operator[](size_t i) const { return memory_.get()[i]; }

 private:
  std::unique_ptr<T, FreeBigMemory> memory_;
  size_t size_ = 0;
};

}  // namespace quorvane
