// Host values as they stand: what they are as values, and how the host prints them.
#include "Velto/Value/HostValue.h"

#include <algorithm>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/NumberText.h"

namespace velto {

namespace {

using SharedElements = std::shared_ptr<const HostValue::Elements>;
using SharedEntries = std::shared_ptr<const HostValue::Entries>;

bool isValue(const HostValue& host) {
  return host.is<Value>();
}

Value arrayFrom(const HostValue::Elements& elements) {
  if (!std::ranges::all_of(elements, isValue)) return makeRef<const HostArray>(elements);
  std::vector<Value> values;
  values.reserve(elements.size());
  for (const HostValue& element : elements) values.push_back(*element.as<Value>());
  return Array(std::move(values));
}

Value dictionaryFrom(const HostValue::Entries& entries) {
  const auto isOfValues = [](const auto& entry) { return isValue(entry.first) && isValue(entry.second); };
  if (!std::ranges::all_of(entries, isOfValues)) return makeRef<const HostDictionary>(entries);
  Dictionary result;
  result.reserve(entries.size());
  for (const auto& [key, value] : entries) result.set(*key.as<Value>(), *value.as<Value>());
  return result;
}

struct AsValue {
  std::optional<Value> operator()(std::monostate) const { return std::nullopt; }
  std::optional<Value> operator()(const HostValue::Unknown&) const { return std::nullopt; }
  std::optional<Value> operator()(const SharedElements& elements) const { return arrayFrom(*elements); }
  std::optional<Value> operator()(const SharedEntries& entries) const { return dictionaryFrom(*entries); }
  template <typename T>
  std::optional<Value> operator()(const T& content) const {
    return Value(content);
  }
};

/// Inside arrays and dictionaries the host prints its debug form.
String printedElements(const HostValue::Elements& elements) {
  StringBuilder text;
  text.append("[");
  for (const HostValue& element : elements) {
    if (&element != &elements.front()) text.append(", ");
    text.append(element.debugPrinted());
  }
  return text.append("]").build();
}

String printedEntries(const HostValue::Entries& entries) {
  return HostDictionary(entries).objectDescription();
}

String quoted(const String& text) {
  StringBuilder result;
  result.append("\"");
  for (const char& byte : text.view()) {
    switch (byte) {
      case '"':
        result.append("\\\"");
        break;
      case '\\':
        result.append("\\\\");
        break;
      case '\n':
        result.append("\\n");
        break;
      case '\r':
        result.append("\\r");
        break;
      case '\t':
        result.append("\\t");
        break;
      default:
        result.append({&byte, 1});
    }
  }
  return result.append("\"").build();
}

struct Printed {
  String operator()(std::monostate) const { return "nil"; }
  String operator()(const HostValue::Unknown& unknown) const { return unknown.typeName; }
  String operator()(double number) const { return hostDescription(number); }
  String operator()(float number) const { return hostDescription(number); }
  String operator()(Int number) const { return decimal(number); }
  String operator()(const SharedElements& elements) const { return printedElements(*elements); }
  String operator()(const SharedEntries& entries) const { return printedEntries(*entries); }
  template <typename T>
  String operator()(const T& content) const {
    return Value(content).description();
  }
};

}  // namespace

const HostValue::Elements* HostValue::elements() const noexcept {
  const SharedElements* elements = as<SharedElements>();
  return elements ? elements->get() : nullptr;
}

const HostValue::Entries* HostValue::entries() const noexcept {
  const SharedEntries* entries = as<SharedEntries>();
  return entries ? entries->get() : nullptr;
}

std::optional<Value> HostValue::asValue() const {
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
