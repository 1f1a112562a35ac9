#include "tests/reliability/FailingAllocator.h"

#include <cerrno>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__APPLE__)
#define VELTO_MALLOC_IS_TAKEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VELTO_MALLOC_IS_TAKEN
#endif
#endif

namespace {

struct State {
  std::ptrdiff_t live = 0;
  std::size_t untilFailure = 0;
  bool isArmed = false;
  bool isForGood = false;
  bool hasStruck = false;
};

thread_local constinit State state;

bool mustFail() noexcept {
  if (!state.isArmed) return false;
  if (state.hasStruck) return state.isForGood;
  if (state.untilFailure > 0) {
    --state.untilFailure;
    return false;
  }
  state.hasStruck = true;
  return true;
}

void* counted(void* block) noexcept {
  if (block) ++state.live;
  return block;
}

}  // namespace

namespace velto::test {

AllocationFailure::AllocationFailure(std::size_t number, Failing failing) noexcept : number_(number) {
  state = {state.live, number, true, failing == Failing::fromThenOn, false};
}

AllocationFailure::~AllocationFailure() {
  end();
}

void AllocationFailure::end() noexcept {
  state.isArmed = false;
}

bool AllocationFailure::hasStruck() const noexcept {
  return state.hasStruck;
}

std::size_t AllocationFailure::count() const noexcept {
  return number_ - state.untilFailure;
}

std::ptrdiff_t liveBlocks() noexcept {
  // What the first exception of a thread leaves behind for all others is there in any case.
  try {
    throw 0;
  } catch (int) {
  }
  return state.live;
}

}  // namespace velto::test

#if defined(VELTO_MALLOC_IS_TAKEN)

namespace {

void* allocate(std::size_t size) noexcept {
  return mustFail() ? nullptr : counted(std::malloc(size == 0 ? 1 : size));
}

void give(void* block) noexcept {
  if (block) --state.live;
  std::free(block);
}

}  // namespace

#else

// The allocator of the C library, by the names that it keeps for programs that replace it.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

void* withError(void* block) noexcept {
  if (!block) errno = ENOMEM;
  return block;
}

void* allocate(std::size_t size) noexcept {
  return withError(mustFail() ? nullptr : counted(__libc_malloc(size)));
}

void* allocateAligned(std::size_t alignment, std::size_t size) noexcept {
  return withError(mustFail() ? nullptr : counted(__libc_memalign(alignment, size)));
}

void give(void* block) noexcept {
  if (block) --state.live;
  __libc_free(block);
}

}  // namespace

// So that libraries find them, too.
#pragma GCC visibility push(default)

extern "C" {

void* malloc(std::size_t size) {
  return allocate(size);
}

void* calloc(std::size_t count, std::size_t size) {
  return withError(mustFail() ? nullptr : counted(__libc_calloc(count, size)));
}

void* realloc(void* block, std::size_t size) {
  if (!block) return allocate(size);
  return withError(mustFail() ? nullptr : __libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
  return allocateAligned(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return allocateAligned(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
#ifdef _LIBCPP_VERSION
  // By this libc++ asks for its exceptions; up to version 14 what it falls back on isn't aligned, so that throwing
  // stops the process. The library itself asks for nothing in this way.
  *block = withError(counted(__libc_memalign(alignment, size)));
#else
  *block = allocateAligned(alignment, size);
#endif
  return *block ? 0 : ENOMEM;
}

void free(void* block) {
  give(block);
}
}

#pragma GCC visibility pop

#endif

namespace {

void* allocateOrThrow(std::size_t size) {
  if (void* const block = allocate(size)) return block;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return allocateOrThrow(size);
}

void* operator new[](std::size_t size) {
  return allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return allocate(size);
}

void operator delete(void* block) noexcept {
  give(block);
}

void operator delete[](void* block) noexcept {
  give(block);
}

void operator delete(void* block, std::size_t) noexcept {
  give(block);
}

void operator delete[](void* block, std::size_t) noexcept {
  give(block);
}
