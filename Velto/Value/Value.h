// The one dynamic type of the language.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>

#include "Velto/Platform/Ref.h"
#include "Velto/Platform/String.h"
#include "Velto/Value/ObjectForm.h"

namespace [[gnu::visibility("default")]] velto {

template <typename T, typename... Others>
concept OneOf = (std::same_as<T, Others> || ...);

/// The types of the host that become numbers: neither `bool` nor a character.
template <typename T>
concept Numeric = std::floating_point<T> ||
    (std::integral<T> && !OneOf<T, bool, char, wchar_t, char8_t, char16_t, char32_t>);

/// A class below one of the two bases. Nothing is asked of the bases themselves, since they may be known by name only.
template <typename T, typename Base>
concept KindOf = !OneOf<T, const Object, const Callable> && std::derived_from<T, Base>;

/// An object or a callable outside a `Ref`. Nothing is asked of its constructors, one of which may take a value.
template <typename T>
concept HeldByValue = std::derived_from<T, Object> || std::derived_from<T, Callable>;

/// A boolean, a number (a 64-bit float), an object, a callable, `nil`, or the state of a variable that was declared
/// without a value. Copies share what they hold; nothing in the language changes an object in place.
///
/// Questions give a pointer into the value, or null:
///
///     if (const String* text = value.string()) ...
class Value {
 public:
  enum class Case { boolean, number, object, callable, uninitialized, nil };

  Value() noexcept : tag_(Tag::nil), boolean_(false) {}
  Value(std::nullptr_t) noexcept : Value() {}
  template <std::same_as<bool> T>
  Value(T boolean) noexcept : tag_(Tag::boolean), boolean_(boolean) {}
  template <Numeric T>
  Value(T number) noexcept : tag_(Tag::number), number_(static_cast<double>(number)) {}
  Value(String text) noexcept : tag_(Tag::string), string_(std::move(text)) {}
  /// Null is `nil`.
  Value(const char* text);
  Value(const std::string& text) : Value(String(text)) {}
  Value(std::string_view text) : Value(String(text)) {}
  Value(Character character);
  template <OneOf<char, char32_t> T>
  Value(T scalar) : Value(textOf(static_cast<char32_t>(scalar))) {}
  Value(Ref<const Array> array) noexcept;
  Value(Array array);
  Value(Ref<const Dictionary> dictionary) noexcept;
  Value(Dictionary dictionary);
  Value(Ref<const CountableRange> range) noexcept;
  Value(Ref<const CountableClosedRange> range) noexcept;
  /// Any object; one of the kinds above is recognised. A container of the host's that has nothing but values in it, as
  /// an empty one has, is copied into one of values.
  Value(Ref<const Object> object);
  Value(Ref<const Callable> callable) noexcept;
  template <KindOf<Object> T>
  Value(const Ref<T>& object) : Value(Ref<const Recognised<T>>(object)) {}
  template <KindOf<Callable> T>
  Value(const Ref<T>& callable) noexcept : Value(Ref<const Callable>(callable)) {}

  /// An object or a callable that isn't behind a `Ref` moves there.
  template <HeldByValue T>
  Value(T held) : Value(makeRef<const T>(std::move(held))) {}
  /// A record of the host's with the form of an object; copied, unless it is shared.
  template <HasObjectForm T>
  Value(const T& record) : Value(Ref<const Object>(asObject(record))) {}

  static Value nil() noexcept { return {}; }
  static Value uninitialized() noexcept;
  static Value arrayLiteral(std::initializer_list<Value> elements);
  /// Two equal keys are a fatal stop.
  static Value dictionaryLiteral(std::initializer_list<std::pair<Value, Value>> pairs);
  /// From a host value, deeply: arrays and dictionaries come out as arrays and dictionaries of values. Nothing if any
  /// part of it can't be converted.
  static std::optional<Value> from(const HostValue& host);

  Value(const Value& other) noexcept;
  Value(Value&& other) noexcept;
  Value& operator=(const Value& other) noexcept;
  Value& operator=(Value&& other) noexcept;
  ~Value();

  Case kind() const noexcept;
  bool isNil() const noexcept { return tag_ == Tag::nil; }
  bool isUninitialized() const noexcept { return tag_ == Tag::uninitialized; }
  /// Whether it shares something with its copies: a text, an object or a callable.
  bool isHolder() const noexcept { return tag_ >= Tag::string; }
  /// Whether it is just now the only holder of an object or a callable, which would go with it.
  bool isLastOfObject() const noexcept { return tag_ > Tag::string && shared_->holderCount() == 1; }
  bool isObject() const noexcept { return tag_ >= Tag::string && tag_ != Tag::callable; }

  const bool* boolean() const noexcept { return tag_ == Tag::boolean ? &boolean_ : nullptr; }
  const double* number() const noexcept { return tag_ == Tag::number ? &number_ : nullptr; }
  const String* string() const noexcept { return tag_ == Tag::string ? &string_ : nullptr; }
  // Each stands in the header of its type.
  inline const Array* array() const noexcept;
  inline const Dictionary* dictionary() const noexcept;
  inline const CountableRange* openRange() const noexcept;
  inline const CountableClosedRange* closedRange() const noexcept;
  inline const Callable* callable() const noexcept;
  /// The object, whatever its kind, but for a string.
  const Object* object() const noexcept;

  /// The member `name`; nothing if this isn't an object, or has no such member.
  std::optional<Value> get(const String& name) const;
  /// The text of an object.
  String objectDescription() const;

  /// The value itself: what `asValue` gives for every implementer of the interface.
  const Value& asValue() const noexcept { return *this; }

  /// Whether `value` may enter the interpreter: no array or dictionary of anything but values, at any depth.
  static bool verify(const Value& value);

  /// Puts `piece`, which must be well-formed, behind the text that this must be; in place, if nobody else holds it.
  void append(std::string_view piece) { string_ = std::move(string_).appending(piece); }

  /// The text that the language prints: numbers through "%g", strings bare.
  String description() const;

  /// Whether this is of the named type and no other. `nil` and an uninitialized value have no type.
  bool isOf(const MetaType& type) const;

  /// Agrees with `==`; salted by the process.
  Int hashValue() const;
  /// The salts of the process.
  struct Hash;

  friend bool operator==(const Value& left, const Value& right);

 private:
  enum class Tag : std::uint8_t {
    nil,
    uninitialized,
    boolean,
    number,
    string,
    array,
    dictionary,
    openRange,
    closedRange,
    object,
    callable
  };

  /// The kind of object that a type tells, without a look at the object.
  template <typename T>
  using Recognised = std::conditional_t<OneOf<T, Array, Dictionary, CountableRange, CountableClosedRange>, T, Object>;

  /// An empty `shared` gives `nil`.
  Value(Tag tag, Ref<const Counted> shared) noexcept;

  static String textOf(char32_t scalar);
  /// What this value, without those inside, adds to the hash.
  Int ownHash() const;
  template <typename T>
  T* as(Tag tag) const noexcept;
  void copyBits(const Value& other) noexcept;
  void moveBits(const Value& other) noexcept;
  /// What this value is one of the holders of, or null.
  const Counted* held() const noexcept;

  Tag tag_;
  union {
    std::uint64_t bits_;
    bool boolean_;
    double number_;
    String string_;
    Ref<const Counted> shared_;
  };
};

static_assert(sizeof(Value) == 16);

[[gnu::visibility("default")]] bool operator==(const Value& left, const Value& right);

/// What a number prints as: the C format "%g", with "nan" for every NaN.
[[gnu::visibility("default")]] String numberDescription(double number);

}  // namespace velto

template <>
struct std::hash<velto::Value> {
  std::size_t operator()(const velto::Value& value) const { return static_cast<std::size_t>(value.hashValue()); }
};

#include "Velto/Value/ValueInline.h"
