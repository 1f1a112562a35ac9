// Work on a stack that nobody knows the bounds of.
#pragma once

#include <ucontext.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>

namespace velto::test {

/// Runs `work` on a stack of the host's own. Nothing may be thrown out of it.
inline void onFiber(std::size_t size, const std::function<void()>& work) {
  static thread_local const std::function<void()>* current = nullptr;
  current = &work;
  const auto stack = std::make_unique<char[]>(size);
  ucontext_t caller;
  ucontext_t fiber;
  if (::getcontext(&fiber) != 0) throw std::runtime_error("There is no fiber for the test.");
  fiber.uc_stack.ss_sp = stack.get();
  fiber.uc_stack.ss_size = size;
  fiber.uc_link = &caller;
  ::makecontext(
      &fiber, [] { (*current)(); }, 0);
  if (::swapcontext(&caller, &fiber) != 0) throw std::runtime_error("There is no fiber for the test.");
}

}  // namespace velto::test
