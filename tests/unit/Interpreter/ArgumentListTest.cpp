// The room for the arguments of a call.
#include "Velto/Interpreter/ArgumentList.h"

#include <gtest/gtest.h>

#include "Velto/Value/Array.h"

namespace velto::test {

TEST(ArgumentList, HoldsAsManyValuesAsItWasMadeFor) {
  for (const std::size_t count : {0u, 1u, 3u, 4u, 5u, 40u}) {
    ArgumentList arguments(count);
    for (std::size_t number = 0; number < count; ++number) arguments.add(number);
    ASSERT_EQ(arguments.values().size(), count);
    for (std::size_t number = 0; number < count; ++number) EXPECT_EQ(arguments.values()[number], Value(number));
  }
}

TEST(ArgumentList, LetsGoOfWhatHasCome) {
  for (const std::size_t count : {4u, 5u}) {
    const Ref<const Object> object = makeRef<const Array>(std::vector<Value>{1});
    {
      ArgumentList arguments(count);
      arguments.add(object);
      arguments.add(object);
      EXPECT_EQ(object->holderCount(), 3u);
    }
    EXPECT_EQ(object->holderCount(), 1u);
  }
}

}  // namespace velto::test
