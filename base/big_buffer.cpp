#include "base/big_buffer.h"

#include <cstdlib>
#include <cstring>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace quorvane {
namespace {

constexpr size_t kHugePage = size_t{2} << 20;

#ifdef __linux__
// The size of the mapping stands in front of the memory that is handed out, in a block of its own cache line.
constexpr size_t kHeader = 64;
#endif

}  // namespace

#ifdef __linux__

void* AllocateBig(size_t bytes) {
  const size_t size = bytes + kHeader;
  // A mapping of a huge page or more is placed on a huge-page boundary, so that all of it can be huge.
  const size_t slack = size >= kHugePage ? kHugePage : 0;
  void* mapping = mmap(nullptr, size + slack, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) {
    throw std::bad_alloc();
  }
  char* start = static_cast<char*>(mapping);
  if (slack != 0) {
    const size_t past = reinterpret_cast<size_t>(start) % kHugePage;
    const size_t skipped = past == 0 ? 0 : kHugePage - past;
    if (skipped != 0) {
      munmap(start, skipped);
    }
    start += skipped;
    if (slack > skipped) {
      const size_t pages = (size + 4095) / 4096 * 4096;
      munmap(start + pages, slack - skipped);
    }
    madvise(start, size, MADV_HUGEPAGE);
  }
  std::memcpy(start, &size, sizeof size);
  return start + kHeader;
}

void FreeBig(void* memory) noexcept {
  if (memory != nullptr) {
    char* start = static_cast<char*>(memory) - kHeader;
    size_t size = 0;
    std::memcpy(&size, start, sizeof size);
    munmap(start, size);
  }
}

#else

void* AllocateBig(size_t bytes) {
  void* memory = std::calloc(bytes, 1);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void FreeBig(void* memory) noexcept {
  std::free(memory);
}

#endif

}  // namespace quorvane
