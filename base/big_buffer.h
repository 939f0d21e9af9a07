// Memory for the lexicon's large arrays.
#pragma once

#include <cstddef>
#include <memory>

namespace quorvane {

// `bytes` of zeroed memory on a boundary of 64 bytes, of which only touched pages are resident; large blocks ask the
// system for huge pages, which halves the time to read them. Throws std::bad_alloc.
void* AllocateBig(size_t bytes);
void FreeBig(void* memory) noexcept;

// The first `size` bytes of an open file, with `padding` zero bytes behind them, without reading or copying them: the
// memory is the system's own copy of the file. A file that somebody shortens meanwhile ends the process with SIGBUS
// when the missing part is touched. Null where the system can't do it.
void* MapFile(int fileDescriptor, size_t size, size_t padding);

// Has the processor fetch the memory at an address that will be read soon; nothing depends on whether it does.
inline void FetchEarly([[maybe_unused]] const void* memory) {
#if defined(__GNUC__)
  __builtin_prefetch(memory);
#endif
}

struct FreeBigMemory {
  void operator()(void* memory) const noexcept { FreeBig(memory); }
};

// An owning array of trivial elements.
template <class T>
class BigBuffer {
 public:
  BigBuffer() = default;
  explicit BigBuffer(size_t size) : memory_(static_cast<T*>(AllocateBig(size * sizeof(T)))), size_(size) {}

  // Takes over memory that AllocateBig or MapFile handed out.
  static BigBuffer Adopt(void* memory, size_t size) {
    BigBuffer buffer;
    buffer.memory_.reset(static_cast<T*>(memory));
    buffer.size_ = size;
    return buffer;
  }

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
