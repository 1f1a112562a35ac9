// The arguments of a call while they are worked out.
#include "Velto/Interpreter/ArgumentList.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "Velto/Value/Array.h"

namespace velto::test {

TEST(ArgumentList, HoldsWhatWasAddedWhereThereWasRoom) {
  alignas(Value) std::byte memory[40 * sizeof(Value)];
  for (const std::size_t count : {0u, 1u, 4u, 40u}) {
    ArgumentList arguments(memory);
    for (std::size_t number = 0; number < count; ++number) arguments.add([&] { return Value(number); });
    ASSERT_EQ(arguments.values().size(), count);
    EXPECT_EQ(static_cast<const void*>(arguments.values().data()), memory);
    for (std::size_t number = 0; number < count; ++number) EXPECT_EQ(arguments.values()[number], Value(number));
  }
}

TEST(ArgumentList, LetsGoOfWhatHasCome) {
  const Ref<const Object> object = makeRef<const Array>(std::vector<Value>{1});
  alignas(Value) std::byte memory[3 * sizeof(Value)];
  const auto make = [&] { return Value(object); };
  try {
    ArgumentList arguments(memory);
    arguments.add(make);
    arguments.add(make);
    EXPECT_EQ(object->holderCount(), 3u);
    arguments.add([]() -> Value { throw std::runtime_error("the third can't be worked out"); });
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error&) {
    EXPECT_EQ(object->holderCount(), 1u);
  }
}

}  // namespace velto::test
