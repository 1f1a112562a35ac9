// Ranges of integers.
#include "Velto/Value/IntegerRange.h"

#include "Velto/Platform/Fatal.h"

namespace velto {

namespace {

/// Gives the upper bound back.
Int checked(Int lower, Int upper) {
  if (upper < lower) fatalError("The upper bound of a range is below its lower bound");
  return upper;
}

}  // namespace

CountableRange::CountableRange(Int lower, Int upper) : lower(lower), upper(checked(lower, upper)) {
}

CountableClosedRange::CountableClosedRange(Int lower, Int upper) : lower(lower), upper(checked(lower, upper)) {
}

}  // namespace velto
