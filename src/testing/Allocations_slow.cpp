#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "testing/Allocations.h"

namespace {

std::size_t sizeOf(void* block) {
#ifdef _WIN32
  return ::_msize(block);
#else
  return ::malloc_usable_size(block);
#endif
}

std::size_t live = 0;
std::size_t peak = 0;
std::size_t marked = 0;

}  // namespace

// This program has one thread, so plain counters serve.
void* operator new(std::size_t size) {
  void* block = std::malloc(size);
  if (block == nullptr) throw std::bad_alloc();
  live += sizeOf(block);
  peak = std::max(peak, live);
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) live -= sizeOf(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace korvane {

void markAllocations() {
  marked = live;
  peak = live;
}

std::size_t allocationPeak() { return peak - marked; }

}  // namespace korvane
