// A ready-made `equals` member for host types.
#pragma once

#include <array>
#include <concepts>

#include "Velto/Value/Callable.h"
#include "Velto/Value/HostObject.h"

namespace [[gnu::visibility("default")]] velto {

/// The payload of an object of type `T`, null for anything else: a string, a record behind `object(record)`, or a class
/// derived from `Object`.
template <typename T>
const T* payload(const Value& value) {
  if constexpr (std::same_as<T, String>) {
    return value.string();
  } else if constexpr (std::derived_from<T, Object>) {
    return dynamic_cast<const T*>(value.object());
  } else {
    const auto* object = dynamic_cast<const HostObject<T>*>(value.object());
    return object ? &object->record() : nullptr;
  }
}

/// The callable "equals" of two values that compares by the `==` of `T`.
template <std::equality_comparable T>
class Equals final : public Callable {
 public:
  String name() const override { return "equals"; }
  std::span<const Label> labels() const noexcept override { return labels_; }

  Value call(Interpreter&, Arguments arguments, const ReportError& reportError) const override {
    const Value& left = arguments[0];
    const Value& right = arguments[1];
    if (left.isNil() || right.isNil()) return left.isNil() && right.isNil();
    const T* leftPayload = payload<T>(left);
    if (!leftPayload) reportError(complaint("Left-hand side is not '"));
    const T* rightPayload = payload<T>(right);
    if (!rightPayload) reportError(complaint("Right-hand side is not '"));
    return *leftPayload == *rightPayload;
  }

 private:
  static String complaint(std::string_view side) {
    return String::concatenation({side, printedTypeName(typeid(T)), "'."});
  }

  std::array<Label, 2> labels_;
};

}  // namespace velto
