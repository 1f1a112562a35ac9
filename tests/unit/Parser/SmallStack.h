// For what is deep: long sources, and a stack that is soon exhausted.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <string>
#include <string_view>

namespace velto {

constexpr std::size_t smallStack = 1024 * 1024;

/// Runs `work` on a stack that is soon exhausted.
inline void onSmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, smallStack);
  pthread_t thread;
  const auto run = [](void* work) -> void* {
    (*static_cast<std::function<void()>*>(work))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

inline std::string repeated(std::string_view piece, int count) {
  std::string all;
  for (int index = 0; index < count; ++index) all += piece;
  return all;
}

}  // namespace velto
