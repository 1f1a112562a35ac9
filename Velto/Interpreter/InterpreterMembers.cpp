// The two expressions that reach into a value: members and subscripts.
#include <limits>

#include "Velto/Interpreter/IntegerConversion.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"

namespace velto {

Value Interpreter::valueOf(const NodeOf<Member>& node) {
  return memberOf(evaluate(node.object), node);
}

Value Interpreter::memberOf(const Value& object, const NodeOf<Member>& node) {
  if (!object.isObject()) {
    fail(node, &Member::dot,
         String::concatenation({"Operand must be an object but it is ", object.description(), "."}));
  }
  std::optional<Value> result = object.get(node.member);
  if (!result) {
    fail(node, &Member::dot,
         String::concatenation(
             {"Object '", object.objectDescription(), "' does not have property '", node.member, "'."}));
  }
  return std::move(*result);
}

Value Interpreter::valueOf(const NodeOf<Subscript>& node) {
  const Value* const value = findAtOnce(node);
  return value ? *value : elementOf(node);
}

/// A dictionary that is found at once stays where it is, if its key is found at once as well.
Value Interpreter::elementOf(const NodeOf<Subscript>& node) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node);
  const Value* const found = findValue(node.subscriptee);
  const Dictionary* const dictionary = found ? found->dictionary() : nullptr;
  const String* const key = dictionary ? findText(node.index) : nullptr;
  if (key) return entry(node, *dictionary, *key);
  const Value container = evaluate(node.subscriptee);
  if (const Array* array = container.array()) return element(node, *array);
  if (const Dictionary* any = container.dictionary()) return element(node, *any);
  if (const String* string = container.string()) return element(node, *string);
  fail(node, &Subscript::bracket, "Can only subscript arrays, dictionaries or strings.");
}

/// Dictionaries that come along one after the other are mostly of one make, so that the next one is asked at this
/// place.
Value Interpreter::entry(const NodeOf<Subscript>& node, const Dictionary& dictionary, const String& key) {
  const Value* const value = dictionary.findText(key);
  if (!value) return Value::nil();
  node.entry.set(static_cast<std::uint32_t>(dictionary.placeOf(*value)));
  return *value;
}

Value Interpreter::element(const NodeOf<Subscript>& node, const Array& array) {
  const Value value = evaluate(node.index);
  if (!value.number()) fail(node, &Subscript::bracket, "Array subscripts can only be numbers.");
  const Int index = integer(*value.number());
  if (index < 0 || index >= static_cast<Int>(array.size())) fail(node, &Subscript::bracket, "Index out of bounds.");
  return array.elements()[static_cast<std::size_t>(index)];
}

Value Interpreter::element(const NodeOf<Subscript>& node, const Dictionary& dictionary) {
  if (const String* const key = findText(node.index)) return entry(node, dictionary, *key);
  const Value* value = dictionary.find(evaluateKey(node.index, [&] { return recordOf(node).bracket.range; }));
  return value ? *value : Value::nil();
}

Value Interpreter::element(const NodeOf<Subscript>& node, const String& string) {
  const Value value = evaluate(node.index);
  std::optional<String> result;
  if (const double* number = value.number()) {
    const Int index = integer(*number);  // never the largest integer, which no float is
    result = characters_.slice(string, index, index + 1);
    if (!result) fail(node, &Subscript::bracket, "Index out of bounds.");
  } else if (const CountableClosedRange* closed = value.closedRange()) {
    if (closed->upper < std::numeric_limits<Int>::max())
      result = characters_.slice(string, closed->lower, closed->upper + 1);
  } else if (const CountableRange* open = value.openRange()) {
    result = characters_.slice(string, open->lower, open->upper);
  } else {
    fail(node, &Subscript::bracket, "String subscripts can only be numbers or ranges.");
  }
  if (!result) fail(node, &Subscript::bracket, "Range out of bounds.");
  return std::move(*result);
}

}  // namespace velto
