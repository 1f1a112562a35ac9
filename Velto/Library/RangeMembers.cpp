// The member tables of integer ranges.
#include <limits>

#include "Velto/Library/EqualsMember.h"
#include "Velto/Platform/Wrapping.h"
#include "Velto/Value/IntegerRange.h"

namespace velto {

namespace {

/// `upper - lower`, which may be more than an `Int` holds.
VELTO_WRAPS std::uint64_t distance(Int lower, Int upper) {
  return static_cast<std::uint64_t>(upper) - static_cast<std::uint64_t>(lower);
}

Value countOfClosed(std::uint64_t distance) {
  if (distance == std::numeric_limits<std::uint64_t>::max()) return 0x1p64;
  return distance + 1;
}

}  // namespace

std::optional<Value> CountableRange::get(const String& name) const {
  const std::string_view member = name;
  if (member == "count") return Value(distance(lower, upper));
  if (member == "equals") return equalsMember(name);
  if (member == "isEmpty") return Value(lower == upper);
  return std::nullopt;
}

String CountableRange::objectDescription() const {
  return String::concatenation({decimal(lower), "..<", decimal(upper)});
}

std::optional<Value> CountableClosedRange::get(const String& name) const {
  const std::string_view member = name;
  if (member == "count") return countOfClosed(distance(lower, upper));
  if (member == "equals") return equalsMember(name);
  if (member == "isEmpty") return Value(false);
  return std::nullopt;
}

String CountableClosedRange::objectDescription() const {
  return String::concatenation({decimal(lower), "...", decimal(upper)});
}

}  // namespace velto
