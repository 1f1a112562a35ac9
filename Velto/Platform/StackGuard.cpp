// Where the stack of a thread ends.
#include "Velto/Platform/StackGuard.h"

#include <pthread.h>

#include <algorithm>

#include "Velto/Platform/Wrapping.h"

namespace velto {

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELTO_HAS_LARGE_FRAMES
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VELTO_HAS_LARGE_FRAMES
#endif

#if defined(VELTO_HAS_LARGE_FRAMES)
constexpr std::size_t largestReserve = 512 * 1024;  // the address sanitizer makes frames several times as large
#else
constexpr std::size_t largestReserve = 128 * 1024;
#endif

/// How far recursion may go where the stack has no bounds worth the name: it would take all memory before it met one.
constexpr std::size_t largestUse = 256 * 1024 * 1024;

/// What is taken to be left of a stack whose bounds nobody tells, such as that of a host's own fiber.
constexpr std::size_t leftOfUnknownStack = 48 * 1024;

struct Bounds {
  std::uintptr_t lowest = 0;
  std::size_t size = 0;

  VELTO_WRAPS bool contain(std::uintptr_t address) const noexcept { return address - lowest < size; }
  std::uintptr_t limit() const noexcept { return lowest + std::min(largestReserve, size / 8); }
};

#if defined(__APPLE__)

Bounds askForBounds() noexcept {
  const auto highest = reinterpret_cast<std::uintptr_t>(::pthread_get_stackaddr_np(::pthread_self()));
  const std::size_t size = ::pthread_get_stacksize_np(::pthread_self());
  return {highest - size, size};
}

#else

Bounds askForBounds() noexcept {
  pthread_attr_t attributes;
  if (::pthread_getattr_np(::pthread_self(), &attributes) != 0) return {};
  void* lowest = nullptr;
  std::size_t size = 0;
  std::size_t guard = 0;
  ::pthread_attr_getstack(&attributes, &lowest, &size);
  ::pthread_attr_getguardsize(&attributes, &guard);
  ::pthread_attr_destroy(&attributes);
  return {reinterpret_cast<std::uintptr_t>(lowest) + guard, size - guard};
}

#endif

}  // namespace

StackGuard::StackGuard() noexcept {
  // Asking for those of the main thread reads a file, and may fail for lack of memory or descriptors.
  thread_local constinit Bounds bounds;
  if (bounds.size == 0) bounds = askForBounds();
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  limit_ = bounds.contain(here) ? std::max(bounds.limit(), here - largestUse) : here - leftOfUnknownStack;
}

}  // namespace velto
