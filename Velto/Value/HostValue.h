// Any value of the host's own, before it becomes a `Value`.
#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <ranges>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "Velto/Platform/TypeName.h"
#include "Velto/Value/Callable.h"
#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// What the host's platform calls its 64-bit float of geometry.
using CGFloat = double;

/// What has no constructor of `HostValue` to itself.
template <typename T>
concept ToldByType = !OneOf<T, HostValue, Value, std::nullopt_t, std::nullptr_t>;

/// A tagged host value. It is made from anything: booleans, numbers, text, values, objects, callables, arrays (any
/// range), dictionaries (any range of pairs), optionals of, variants of and shared pointers to all these, and types
/// with an object form. Of any other type only the name is kept, and it can't be converted; so it is with code units of
/// 16 bits, which are neither numbers nor text.
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
  HostValue(std::nullptr_t) noexcept {}
  HostValue(Value value) : content_(std::move(value)) {}
  template <ToldByType T>
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

  /// What `asValue` gives: an array or a dictionary is taken as it stands, its elements unconverted. Nothing for an
  /// absent value and one of an unknown type.
  std::optional<Value> asValue() const;

  /// The host's plain printing: text bare.
  String printed() const;
  /// The host's debug form: text in double quotes.
  String debugPrinted() const;

 private:
  template <typename Contents>
  struct Shared final : Counted {
    explicit Shared(Contents contents) noexcept : contents(std::move(contents)) {}
    const Contents contents;
  };
  using SharedElements = Ref<const Shared<Elements>>;
  using SharedEntries = Ref<const Shared<Entries>>;
  using Content = std::variant<std::monostate, Value, bool, double, float, Int, String, Ref<const Object>,
                               Ref<const Callable>, SharedElements, SharedEntries, Unknown>;

  template <typename T>
  static Content contentOf(const T& host);
  template <typename T>
  static Content contentOf(const std::optional<T>& host);
  template <typename T>
  static Content contentOf(const std::shared_ptr<T>& host);
  template <typename... Alternatives>
  static Content contentOf(const std::variant<Alternatives...>& host);
  template <std::derived_from<Object> T>
  static Content contentOf(const Ref<T>& host);
  template <std::derived_from<Callable> T>
  static Content contentOf(const Ref<T>& host);
  static Content contentOf(const char* const& host);
  template <typename T>
  static Content entriesOf(const T& host);
  template <typename T>
  static Content elementsOf(const T& host);

  Content content_;
};

}  // namespace velto

#include "Velto/Value/HostValueInline.h"
