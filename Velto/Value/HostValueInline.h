// How a host value is told by its C++ type; included by HostValue.h alone.
#pragma once

#include "Velto/Value/HostValue.h"

namespace [[gnu::visibility("default")]] velto {

namespace hostkind {

/// An object or a function that the host holds by value.
template <typename T>
concept Held = HeldByValue<T> && std::copy_constructible<T>;

/// A code unit of some encoding: no number, and no character by itself.
template <typename T>
concept CodeUnit = OneOf<T, wchar_t, char8_t, char16_t>;

/// Text in code units that can't be told from other numbers by their size.
template <typename T>
concept WideText =
    std::convertible_to<const T&, std::u16string_view> || std::convertible_to<const T&, std::wstring_view>;

/// A range that isn't its own element, as a path is.
template <typename T>
concept Range = std::ranges::input_range<const T&> && !std::same_as<std::ranges::range_value_t<const T&>, T>;

template <typename T>
concept RangeOfPairs = Range<T> && requires(const std::ranges::range_value_t<const T&>& element) {
  typename std::ranges::range_value_t<const T&>::first_type;
  element.first;
  element.second;
};

}  // namespace hostkind

// A table of kinds, of which the first that fits it is.
// NOLINTBEGIN(readability-function-cognitive-complexity, bugprone-branch-clone)
template <typename T>
HostValue::Content HostValue::contentOf(const T& host) {
  if constexpr (std::same_as<T, HostValue>) {
    return host.content_;
  } else if constexpr (OneOf<T, std::monostate, std::nullptr_t, std::nullopt_t>) {
    return {};
  } else if constexpr (std::same_as<T, Value> || std::same_as<T, bool> || std::same_as<T, float>) {
    return host;
  } else if constexpr (std::floating_point<T>) {
    return static_cast<double>(host);
  } else if constexpr (OneOf<T, char, char32_t>) {
    return *Value(host).string();
  } else if constexpr (hostkind::CodeUnit<T> || hostkind::WideText<T>) {
    return Unknown{unqualifiedTypeName(typeid(host))};
  } else if constexpr (std::convertible_to<const T&, std::u8string_view>) {
    const std::u8string_view text = host;
    return String(std::string(text.begin(), text.end()));
  } else if constexpr (std::integral<T>) {
    // Too large for an `Int`, it can only be a number.
    return static_cast<Int>(host) < 0 && host > 0 ? Content(static_cast<double>(host)) : static_cast<Int>(host);
  } else if constexpr (hostkind::Held<T>) {
    return contentOf(makeRef<const T>(host));
  } else if constexpr (HasObjectForm<T>) {
    return contentOf(Ref<const Object>(asObject(host)));
  } else if constexpr (std::convertible_to<const T&, String>) {
    return String(host);
  } else if constexpr (std::convertible_to<const T&, std::string>) {
    return String(static_cast<std::string>(host));
  } else if constexpr (hostkind::RangeOfPairs<T>) {
    return entriesOf(host);
  } else if constexpr (hostkind::Range<T>) {
    return elementsOf(host);
  } else {
    return Unknown{unqualifiedTypeName(typeid(host))};
  }
}
// NOLINTEND(readability-function-cognitive-complexity, bugprone-branch-clone)

template <typename T>
HostValue::Content HostValue::contentOf(const std::optional<T>& host) {
  return host ? contentOf(*host) : Content();
}

template <typename T>
HostValue::Content HostValue::contentOf(const std::shared_ptr<T>& host) {
  if (!host) return {};
  if constexpr (HasObjectForm<std::shared_ptr<T>>) {
    return contentOf(Ref<const Object>(asObject(host)));
  } else if constexpr (std::is_void_v<T>) {
    return Unknown{"void"};
  } else {
    return contentOf(*host);
  }
}

template <typename... Alternatives>
HostValue::Content HostValue::contentOf(const std::variant<Alternatives...>& host) {
  if (host.valueless_by_exception()) return {};
  return std::visit([](const auto& alternative) { return contentOf(alternative); }, host);
}

template <std::derived_from<Object> T>
HostValue::Content HostValue::contentOf(const Ref<T>& host) {
  return host ? Content(Ref<const Object>(host)) : Content();
}

template <std::derived_from<Callable> T>
HostValue::Content HostValue::contentOf(const Ref<T>& host) {
  return host ? Content(Ref<const Callable>(host)) : Content();
}

inline HostValue::Content HostValue::contentOf(const char* const& host) {
  return host ? Content(String(host)) : Content();
}

template <typename T>
HostValue::Content HostValue::entriesOf(const T& host) {
  Entries entries;
  for (const auto& entry : host) entries.emplace_back(HostValue(entry.first), HostValue(entry.second));
  return makeRef<const Shared<Entries>>(std::move(entries));
}

template <typename T>
HostValue::Content HostValue::elementsOf(const T& host) {
  Elements elements;
  // Not as what the range refers to them by, which is no bool in a vector of such.
  for (const std::ranges::range_value_t<const T&>& element : host) elements.emplace_back(element);
  return makeRef<const Shared<Elements>>(std::move(elements));
}

}  // namespace velto
