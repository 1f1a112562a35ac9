// An `operator new` that counts. It takes the place of the usual one in the whole process, the library included.
#include "benchmarks/memory/Heap.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t held = 0;

std::size_t sizeOf(void* memory) noexcept {
  return memory ? malloc_usable_size(memory) + sizeof(std::size_t) : 0;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  void* const memory = std::malloc(size);
  held += sizeOf(memory);
  return memory;
}

void* operator new(std::size_t size) {
  if (void* const memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  held -= sizeOf(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  operator delete(memory);
}

namespace velto::benchmarks {

std::size_t bytesHeld() noexcept {
  return held;
}

std::size_t bytesTaken(std::size_t size) noexcept {
  constexpr std::size_t least = 32;
  return std::max(least, (size + sizeof(std::size_t) + 15) / 16 * 16);
}

}  // namespace velto::benchmarks
