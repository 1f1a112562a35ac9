// Host values as they stand: what they are as values, and how the host prints them.
#include "Velto/Value/HostValue.h"

#include <algorithm>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/NumberText.h"
#include "Velto/Value/Printing.h"

namespace velto {

namespace {

bool isValue(const HostValue& host) {
  return host.is<Value>();
}

Value arrayFrom(const HostValue::Elements& elements) {
  if (std::optional<Array> values = arrayOfValues(elements)) return std::move(*values);
  return makeRef<const HostArray>(elements);
}

Value dictionaryFrom(const HostValue::Entries& entries) {
  if (std::optional<Dictionary> values = dictionaryOfValues(entries)) return std::move(*values);
  return makeRef<const HostDictionary>(entries);
}

/// Is asked of what is neither an array nor a dictionary.
struct AsValue {
  template <typename T>
  std::optional<Value> operator()(const T& content) const {
    if constexpr (std::constructible_from<Value, const T&>) {
      return Value(content);
    } else {
      return std::nullopt;
    }
  }
};

struct Printed {
  String operator()(std::monostate) const { return "nil"; }
  String operator()(const HostValue::Unknown& unknown) const { return unknown.typeName; }
  String operator()(double number) const { return hostDescription(number); }
  String operator()(float number) const { return hostDescription(number); }
  String operator()(Int number) const { return decimal(number); }
  template <typename T>
  String operator()(const T& content) const {
    if constexpr (std::constructible_from<Value, const T&>) {
      return Value(content).description();
    } else {
      return velto::printed(content->contents, Form::debug);
    }
  }
};

}  // namespace

const HostValue::Elements* HostValue::elements() const noexcept {
  const SharedElements* elements = as<SharedElements>();
  return elements ? &(*elements)->contents : nullptr;
}

const HostValue::Entries* HostValue::entries() const noexcept {
  const SharedEntries* entries = as<SharedEntries>();
  return entries ? &(*entries)->contents : nullptr;
}

std::optional<Array> arrayOfValues(const HostValue::Elements& elements) {
  if (!std::all_of(elements.begin(), elements.end(), isValue)) return std::nullopt;
  std::vector<Value> values;
  values.reserve(elements.size());
  for (const HostValue& element : elements) values.push_back(*element.as<Value>());
  return Array(std::move(values));
}

std::optional<Dictionary> dictionaryOfValues(const HostValue::Entries& entries) {
  const auto isOfValues = [](const auto& entry) { return isValue(entry.first) && isValue(entry.second); };
  if (!std::all_of(entries.begin(), entries.end(), isOfValues)) return std::nullopt;
  Dictionary result;
  result.reserve(entries.size());
  for (const auto& [key, value] : entries) result.set(*key.as<Value>(), *value.as<Value>());
  return result;
}

std::optional<Value> HostValue::asValue() const {
  if (const Elements* elements = this->elements()) return arrayFrom(*elements);
  if (const Entries* entries = this->entries()) return dictionaryFrom(*entries);
  return std::visit(AsValue(), content_);
}

String HostValue::printed() const {
  return std::visit(Printed(), content_);
}

String HostValue::debugPrinted() const {
  const String* text = as<String>();
  return text ? quoted(*text) : printed();
}

}  // namespace velto
