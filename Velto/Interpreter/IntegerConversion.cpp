#include "Velto/Interpreter/IntegerConversion.h"

#include "Velto/Platform/Fatal.h"
#include "Velto/Value/Value.h"

namespace velto {

namespace {

/// The bounds are the nearest floats that are out of range; a NaN lies between no bounds.
template <typename Integer>
Integer converted(double number, double below, double above) {
  if (!(number > below && number < above)) {
    fatalError(String::concatenation({"The number ", numberDescription(number), " can't become an integer."}));
  }
  return static_cast<Integer>(number);
}

}  // namespace

Int integer(double number) {
  return converted<Int>(number, -9223372036854777856.0, 9223372036854775808.0);
}

std::int32_t integer32(double number) {
  return converted<std::int32_t>(number, -2147483649.0, 2147483648.0);
}

}  // namespace velto
