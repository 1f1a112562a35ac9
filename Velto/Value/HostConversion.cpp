// Host values into values, deeply.
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {

namespace {

std::optional<Value> convert(const HostValue::Elements& elements) {
  std::vector<Value> result;
  result.reserve(elements.size());
  for (const HostValue& element : elements) {
    std::optional<Value> value = Value::from(element);
    if (!value) return std::nullopt;
    result.push_back(std::move(*value));
  }
  return Array(std::move(result));
}

std::optional<Value> convert(const HostValue::Entries& entries) {
  Dictionary result;
  result.reserve(entries.size());
  for (const auto& [hostKey, hostValue] : entries) {
    std::optional<Value> key = Value::from(hostKey);
    if (!key) return std::nullopt;
    std::optional<Value> value = Value::from(hostValue);
    if (!value) return std::nullopt;
    result.set(std::move(*key), std::move(*value));
  }
  return result;
}

std::optional<Value> convert(const Ref<const Object>& object) {
  if (const auto* array = dynamic_cast<const HostArray*>(object.get())) return convert(array->elements());
  if (const auto* dictionary = dynamic_cast<const HostDictionary*>(object.get())) return convert(dictionary->entries());
  return Value(object);
}

}  // namespace

std::optional<Value> Value::from(const HostValue& host) {
  if (host.isAbsent()) return nil();
  if (const HostValue::Elements* elements = host.elements()) return convert(*elements);
  if (const HostValue::Entries* entries = host.entries()) return convert(*entries);
  if (const auto* object = host.as<Ref<const Object>>()) return convert(*object);
  return host.asValue();
}

}  // namespace velto
