// The member `equals` of strings, arrays, dictionaries and ranges.
#include "Velto/Library/EqualsMember.h"

#include "Velto/Value/NativeFunctions.h"

namespace velto {

Value equalsMember(const String& name) {
  return makeRef<Function2>(name, [](const Value& left, const Value& right) { return Value(left == right); });
}

}  // namespace velto
