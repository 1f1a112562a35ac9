// What every object does unless it has its own way.
#include "Velto/Value/Object.h"

#include "Velto/Platform/Fatal.h"
#include "Velto/Platform/TypeName.h"
#include "Velto/Value/HostValue.h"

namespace velto {

std::optional<Value> Object::get(const String& name) const {
  return getFromMirror(name);
}

String Object::typeName() const {
  return unqualifiedTypeName(typeid(*this));
}

std::optional<Value> Object::getFromMirror(const String& name) const {
  const std::optional<HostValue> property = child(name);
  const bool isMissing =
      !property || property->is<Value>() || property->is<float>() || property->is<Ref<const Callable>>();
  return isMissing ? std::nullopt : property->asValue();
}

Value Object::asValue() const {
  if (holderCount() == 0) fatalError("An object that becomes a value must be made by makeRef.");
  return Ref<const Object>(this);
}

std::optional<HostValue> Object::child(const String&) const {
  return std::nullopt;
}

}  // namespace velto
