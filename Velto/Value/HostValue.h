// Any value of the host's own, before it becomes a `Value`.
#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <ranges>
#include <string>
#include <typeinfo>
#include <utility>
#include <variant>
#include <vector>

#include "Velto/Value/Callable.h"
#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// What the host's platform calls its 64-bit float of geometry.
using CGFloat = double;

/// A type that has an `asObject` of its own, found by argument-dependent lookup.
template <typename T>
concept HasObjectForm = requires(const T& host) {
  { asObject(host) } -> std::convertible_to<Ref<const Object>>;
};

/// A tagged host value. It is made from anything: booleans, numbers, text, values, objects, callables, arrays (any range),
/// dictionaries (any range of pairs), optionals of all these, and types with an `asObject`. Of any other type only the
/// name is kept, and it can't be converted.
class HostValue {
 public:
  using Elements = std::vector<HostValue>;
  using Entries = std::vector<std::pair<HostValue, HostValue>>;
  struct Unknown {
    String typeName;
  };

  /// An absent value.
  HostValue() noexcept = default;
  HostValue(std::nullopt_t) noexcept {}
  HostValue(Value value) : content_(std::move(value)) {}
  template <typename T>
    requires(!std::same_as<std::remove_cvref_t<T>, HostValue> && !std::same_as<std::remove_cvref_t<T>, Value> &&
             !std::same_as<std::remove_cvref_t<T>, std::nullopt_t>)
  HostValue(const T& host) : content_(contentOf(host)) {}

  bool isAbsent() const noexcept { return is<std::monostate>(); }
  template <typename T>
  bool is() const noexcept {
    return std::holds_alternative<T>(content_);
  }
  template <typename T>
  const T* as() const noexcept {
    return std::get_if<T>(&content_);
  }
  /// Null if this isn't an array, or a dictionary.
  const Elements* elements() const noexcept;
  const Entries* entries() const noexcept;

  /// What `asValue` gives: an array or a dictionary is taken as it stands, its elements unconverted. Nothing for an absent
  /// value and one of an unknown type.
  std::optional<Value> asValue() const;

  /// The host's plain printing: text bare.
  String printed() const;
  /// The host's debug form: text in double quotes.
  String debugPrinted() const;

 private:
  using SharedElements = std::shared_ptr<const Elements>;
  using SharedEntries = std::shared_ptr<const Entries>;
  using Content = std::variant<std::monostate, Value, bool, double, float, Int, String, Ref<const Object>,
                               Ref<const Callable>, SharedElements, SharedEntries, Unknown>;

  template <typename T>
  static Content contentOf(const T& host);
  template <typename T>
  static Content contentOf(const std::optional<T>& host) {
    return host ? contentOf(*host) : Content();
  }
  template <typename T>
  static Content contentOf(const Ref<T>& host);

  Content content_;
};

/// The unqualified name of a type, with its template arguments: "String", "Pair<Int>".
String printedTypeName(const std::type_info& type);
/// The same without the arguments.
String unqualifiedTypeName(const std::type_info& type);

template <typename T>
HostValue::Content HostValue::contentOf(const T& host) {
  if constexpr (std::same_as<T, Value> || std::same_as<T, bool> || std::same_as<T, float>) {
    return host;
  } else if constexpr (std::same_as<T, HostValue>) {
    return host.content_;
  } else if constexpr (std::floating_point<T>) {
    return static_cast<double>(host);
  } else if constexpr (std::integral<T>) {
    return static_cast<Int>(host);
  } else if constexpr (HasObjectForm<T>) {
    return Ref<const Object>(asObject(host));
  } else if constexpr (std::convertible_to<const T&, String>) {
    return String(host);
  } else if constexpr (requires { typename T::mapped_type; }) {
    Entries entries;
    for (const auto& [key, value] : host) entries.emplace_back(HostValue(key), HostValue(value));
    return std::make_shared<const Entries>(std::move(entries));
  } else if constexpr (std::ranges::input_range<const T&>) {
    Elements elements;
    for (const auto& element : host) elements.emplace_back(element);
    return std::make_shared<const Elements>(std::move(elements));
  } else {
    return Unknown{unqualifiedTypeName(typeid(host))};
  }
}

template <typename T>
HostValue::Content HostValue::contentOf(const Ref<T>& host) {
  if constexpr (std::derived_from<std::remove_const_t<T>, Callable>) {
    return Ref<const Callable>(host);
  } else {
    return Ref<const Object>(host);
  }
}

}  // namespace velto
