// The member table of dictionaries.
#include "Velto/Library/EqualsMember.h"
#include "Velto/Value/Dictionary.h"

namespace velto {

std::optional<Value> Mapping::get(const String& name) const {
  const std::string_view member = name;
  if (member == "count") return Value(size());
  if (member == "equals") return equalsMember(name);
  if (member == "isEmpty") return Value(size() == 0);
  return std::nullopt;
}

}  // namespace velto
