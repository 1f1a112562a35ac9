// The member `equals` of strings, arrays, dictionaries and ranges.
#include "Velto/Library/EqualsMember.h"

#include "Velto/Value/NativeFunctions.h"

namespace velto {

Value equalsMember(const String& name) {
  const auto equals =
      makeRef<Function2>(name, [](const Value& left, const Value& right) { return Value(left == right); });
  equals->setHoldsNoFunctions();
  return equals;
}

}  // namespace velto
