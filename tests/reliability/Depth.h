// What is deeper than any stack, and stacks to try it on.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>

#include "tests/reliability/Sanitizers.h"
#include "tests/support/StackThread.h"
#include "tests/support/TestHost.h"

namespace velto::test {

/// How deep things are: too deep for the larger of the two stacks. More takes longer and may be asked for.
inline const int depth = [] {
  const char* const wish = std::getenv("VELTO_DEPTH");
  return wish ? std::atoi(wish) : isSanitized ? 30'000 : 100'000;
}();

inline std::string repeated(std::string_view piece, int count = depth) {
  std::string all;
  all.reserve(piece.size() * static_cast<std::size_t>(count));
  for (int index = 0; index < count; ++index) all += piece;
  return all;
}

/// That a host which has met the end of the stack can go on as if nothing had happened.
inline void expectToGoOn(TestHost& host) {
  host.logger->messages.clear();
  host.files->files["<1>"] = "";
  host.run("func twice(_ x) return x + x end print([1, 2, 3].map(twice))");
  EXPECT_EQ(host.step, std::nullopt);
  EXPECT_EQ(host.output(), "[2, 4, 6]");
  EXPECT_THAT(host.messages(), testing::IsEmpty());
}

inline void onBothStacks(const std::function<void()>& work) {
  for (const std::size_t size : {usualStack, smallStack}) {
    SCOPED_TRACE(size);
    onStack(size, work);
  }
}

}  // namespace velto::test
