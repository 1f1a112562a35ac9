// How values are made, what they answer and how they print.
#include "Velto/Value/Value.h"

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/Callable.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/MetaType.h"
#include "Velto/Value/StringMember.h"
#include "Velto/Value/Walk.h"

namespace velto {

namespace {

/// The same object as one of the kinds with a meaning of their own: a host's array or dictionary that has nothing but
/// values in it, as an empty one has, counts as one of values.
Ref<const Object> normalized(Ref<const Object> object) {
  if (const auto* sequence = dynamic_cast<const Sequence*>(object.get())) {
    if (sequence->size() == 0) return makeRef<const Array>();
    const auto* host = dynamic_cast<const HostArray*>(sequence);
    std::optional<Array> values = host ? arrayOfValues(host->elements()) : std::nullopt;
    if (values) return makeRef<const Array>(std::move(*values));
  } else if (const auto* mapping = dynamic_cast<const Mapping*>(object.get())) {
    if (mapping->size() == 0) return makeRef<const Dictionary>();
    const auto* host = dynamic_cast<const HostDictionary*>(mapping);
    std::optional<Dictionary> values = host ? dictionaryOfValues(host->entries()) : std::nullopt;
    if (values) return makeRef<const Dictionary>(std::move(*values));
  }
  return object;
}

}  // namespace

Value::Value(Tag tag, Ref<const Counted> shared) noexcept : tag_(tag), shared_(std::move(shared)) {
  if (!shared_) *this = nil();
}

Value::Value(const char* text) : Value() {
  if (text) *this = String(text);
}

Value::Value(Character character) : Value(String::fromWellFormed(character.text())) {
}

Value::Value(Ref<const Array> array) noexcept : Value(Tag::array, std::move(array)) {
}

Value::Value(Array array) : Value(makeRef<const Array>(std::move(array))) {
}

Value::Value(Ref<const Dictionary> dictionary) noexcept : Value(Tag::dictionary, std::move(dictionary)) {
}

Value::Value(Dictionary dictionary) : Value(makeRef<const Dictionary>(std::move(dictionary))) {
}

Value::Value(Ref<const CountableRange> range) noexcept : Value(Tag::openRange, std::move(range)) {
}

Value::Value(Ref<const CountableClosedRange> range) noexcept : Value(Tag::closedRange, std::move(range)) {
}

Value::Value(Ref<const Object> object) : Value(Tag::object, normalized(std::move(object))) {
  const Object* held = this->object();
  if (dynamic_cast<const Array*>(held)) tag_ = Tag::array;
  if (dynamic_cast<const Dictionary*>(held)) tag_ = Tag::dictionary;
  if (dynamic_cast<const CountableRange*>(held)) tag_ = Tag::openRange;
  if (dynamic_cast<const CountableClosedRange*>(held)) tag_ = Tag::closedRange;
}

Value::Value(Ref<const Callable> callable) noexcept : Value(Tag::callable, std::move(callable)) {
}

Value Value::arrayLiteral(std::initializer_list<Value> elements) {
  return Array(elements);
}

Value Value::dictionaryLiteral(std::initializer_list<std::pair<Value, Value>> pairs) {
  Dictionary result;
  for (const auto& [key, value] : pairs) {
    if (result.find(key)) fatalError(String::concatenation({"Duplicate values for key: '", key.description(), "'"}));
    result.set(key, value);
  }
  return result;
}

Value::Case Value::kind() const noexcept {
  switch (tag_) {
    case Tag::nil:
      return Case::nil;
    case Tag::uninitialized:
      return Case::uninitialized;
    case Tag::boolean:
      return Case::boolean;
    case Tag::number:
      return Case::number;
    case Tag::callable:
      return Case::callable;
    default:
      return Case::object;
  }
}

const Object* Value::object() const noexcept {
  return isObject() && tag_ != Tag::string ? static_cast<const Object*>(shared_.get()) : nullptr;
}

std::optional<Value> Value::get(const String& name) const {
  if (tag_ == Tag::string) return stringMember(string_, name);
  return isObject() ? object()->get(name) : std::nullopt;
}

String Value::objectDescription() const {
  if (tag_ == Tag::string) return string_;
  return isObject() ? object()->objectDescription() : String();
}

String Value::description() const {
  switch (tag_) {
    case Tag::nil:
      return "nil";
    case Tag::uninitialized:
      return "<uninitialized>";
    case Tag::boolean:
      return boolean_ ? "true" : "false";
    case Tag::number:
      return numberDescription(number_);
    case Tag::callable:
      return String::concatenation({"<callable arity ", decimal(callable()->arity()), ">"});
    default:
      return objectDescription();
  }
}

bool Value::isOf(const MetaType& type) const {
  return MetaType::of(*this) == type;
}

bool Value::verify(const Value& value) {
  return allWithin(value, [](const Value& part) {
    const bool isOfHost = !isContainer(part) &&
                          (dynamic_cast<const Sequence*>(part.object()) || dynamic_cast<const Mapping*>(part.object()));
    return !isOfHost;
  });
}

String Value::textOf(char32_t scalar) {
  return StringBuilder().appendScalar(scalar).view();  // checked: a surrogate is no text
}

}  // namespace velto
