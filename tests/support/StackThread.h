// Work on a stack of a given size.
#pragma once

#include <pthread.h>

#include <cstddef>
#include <functional>
#include <stdexcept>

namespace velto::test {

/// A stack of a usual size, and one that a host with many threads may choose.
constexpr std::size_t usualStack = 2 * 1024 * 1024;
constexpr std::size_t smallStack = 256 * 1024;

/// Runs `work` on a thread whose stack is `size` bytes, and waits for it.
inline void onStack(std::size_t size, const std::function<void()>& work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, size);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  const bool hasStarted = pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&work)) == 0;
  pthread_attr_destroy(&attributes);
  if (!hasStarted) throw std::runtime_error("There is no thread for the test.");
  pthread_join(thread, nullptr);
}

}  // namespace velto::test
