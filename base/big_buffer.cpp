#include "base/big_buffer.h"

#include <cstring>
#include <new>

// The address sanitizer watches the heap, not mappings: for it every block is a heap block of exactly its size.
#if defined(__SANITIZE_ADDRESS__)
#define QUORVANE_HEAP_BLOCKS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUORVANE_HEAP_BLOCKS 1
#endif
#endif

#if defined(__linux__) && !defined(QUORVANE_HEAP_BLOCKS)
#define QUORVANE_MAPPED_BLOCKS 1
#include <sys/mman.h>
#elif defined(__linux__)
#include <unistd.h>
#endif

namespace quorvane {

#ifdef QUORVANE_MAPPED_BLOCKS

namespace {

constexpr size_t kHugePage = size_t{2} << 20;
constexpr size_t kPage = 4096;

// Stands right in front of the memory that is handed out, in a block of its own cache line.
struct alignas(64) Header {
  void* mapping;
  size_t size;
};

constexpr size_t RoundToPages(size_t bytes) {
  return (bytes + kPage - 1) / kPage * kPage;
}

char* MapAnonymous(size_t size) {
  void* mapping = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return mapping == MAP_FAILED ? nullptr : static_cast<char*>(mapping);
}

}  // namespace

void* AllocateBig(size_t bytes) {
  size_t size = RoundToPages(bytes + sizeof(Header));
  if (size % kHugePage > kHugePage / 2) {  // The rest is one huge page, not hundreds of small ones.
    size = (size + kHugePage - 1) / kHugePage * kHugePage;
  }
  // A mapping of a huge page or more is placed on a huge-page boundary, so that all of it can be huge.
  const size_t slack = size >= kHugePage ? kHugePage : 0;
  char* start = MapAnonymous(size + slack);
  if (start == nullptr) {
    throw std::bad_alloc();
  }
  if (slack != 0) {
    const size_t past = reinterpret_cast<size_t>(start) % kHugePage;
    const size_t skipped = past == 0 ? 0 : kHugePage - past;
    if (skipped != 0) {
      munmap(start, skipped);
    }
    start += skipped;
    if (slack > skipped) {
      munmap(start + size, slack - skipped);
    }
    madvise(start, size, MADV_HUGEPAGE);
  }
  new (start) Header{start, size};
  return start + sizeof(Header);
}

void* MapFile(int fileDescriptor, size_t size, size_t padding) {
  // A page for the header, the file, and pages of zeros behind it.
  const size_t filePages = RoundToPages(size);
  const size_t whole = kPage + filePages + RoundToPages(padding);
  char* start = MapAnonymous(whole);
  if (start == nullptr) {
    return nullptr;
  }
  void* file = mmap(start + kPage, filePages, PROT_READ, MAP_PRIVATE | MAP_FIXED, fileDescriptor, 0);
  if (file == MAP_FAILED) {
    munmap(start, whole);
    return nullptr;
  }
  new (start + kPage - sizeof(Header)) Header{start, whole};
  return file;
}

void FreeBig(void* memory) noexcept {
  if (memory != nullptr) {
    const Header header = *(reinterpret_cast<const Header*>(memory) - 1);
    munmap(header.mapping, header.size);
  }
}

#else

namespace {

constexpr std::align_val_t kBoundary{64};

}  // namespace

void* AllocateBig(size_t bytes) {
  return std::memset(::operator new(bytes, kBoundary), 0, bytes);
}

#if defined(__linux__)
void* MapFile(int fileDescriptor, size_t size, size_t padding) {
  auto* memory = static_cast<char*>(AllocateBig(size + padding));
  for (size_t done = 0; done < size;) {
    const ssize_t part = pread(fileDescriptor, memory + done, size - done, static_cast<off_t>(done));
    if (part <= 0) {
      FreeBig(memory);
      return nullptr;
    }
    done += static_cast<size_t>(part);
  }
  return memory;
}
#else
void* MapFile(int, size_t, size_t) {
  return nullptr;
}
#endif

void FreeBig(void* memory) noexcept {
  ::operator delete(memory, kBoundary);
}

#endif

}  // namespace quorvane
