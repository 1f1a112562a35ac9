// The type of a value.
#include "Velto/Value/MetaType.h"

#include <string_view>
#include <utility>

#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace velto {

namespace {

using NamePair = std::pair<std::string_view, std::string_view>;

/// Names of the host's implementation, and what templates call them.
constexpr NamePair publicNames[] = {
    {"CountableClosedRange", "ClosedRange"},
    {"CountableRange", "OpenRange"},
    {"NSConcreteAttributedString", "NSAttributedString"},
    {"NSConcreteMutableAttributedString", "NSMutableAttributedString"},
};

String publicName(const String& hostName) {
  const std::string_view name = hostName.view().substr(0, hostName.view().find('<'));
  for (const auto& [host, language] : publicNames) {
    if (name == host) return language;
  }
  return name;
}

}  // namespace

std::optional<MetaType> MetaType::of(const Value& value) {
  switch (value.kind()) {
    case Value::Case::boolean:
      return MetaType("Boolean");
    case Value::Case::number:
      return MetaType("Number");
    case Value::Case::callable:
      return MetaType("Function");
    case Value::Case::object:
      return MetaType(value.string() ? String("String") : publicName(value.object()->typeName()));
    case Value::Case::uninitialized:
    case Value::Case::nil:
      break;
  }
  return std::nullopt;
}

}  // namespace velto
