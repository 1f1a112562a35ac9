// The expressions that compute a value without reaching into a member or making a call.
#include "Velto/Interpreter/IntegerConversion.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/MetaType.h"

namespace velto {

Value Interpreter::valueOf(const Literal& node) {
  return node.value;
}

Value Interpreter::valueOf(const Grouping& node) {
  return evaluate(node.expression);
}

[[gnu::always_inline]] inline Value Interpreter::calculate(const Token& operator_, double left, double right) {
  switch (operator_.type) {
    case TokenType::equal:
      return left == right;
    case TokenType::notEqual:
      return left != right;
    case TokenType::minus:
      return left - right;
    case TokenType::plus:
      return left + right;
    case TokenType::slash:
      return left / right;
    case TokenType::star:
      return left * right;
    case TokenType::greater:
      return left > right;
    case TokenType::greaterEqual:
      return left >= right;
    case TokenType::less:
      return left < right;
    case TokenType::lessEqual:
      return left <= right;
    default:
      return makeIntegerRange(operator_, left, right);
  }
}

/// The numbers that literals and variables are needn't be taken from where they stand.
Value Interpreter::valueOf(const Binary& node) {
  const double* const left = findNumber(node.left);
  const double* const right = left ? findNumber(node.right) : nullptr;
  return right ? calculate(node.operator_, *left, *right) : combine(node);
}

Value Interpreter::combine(const Binary& node) {
  if (isEquality(node)) {
    const Answer answer = compareTexts(node);
    if (answer != Answer::unknown) return answer == Answer::yes;
  }
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node.range);
  const Value left = evaluate(node.left);
  const Value right = evaluate(node.right);
  const Token& operator_ = node.operator_;
  if (left.number() && right.number()) return calculate(operator_, *left.number(), *right.number());
  if (operator_.type == TokenType::equal) return areSame(left, right, operator_.range);
  if (operator_.type == TokenType::notEqual) return !areSame(left, right, operator_.range);
  fail(operator_.range, "Operands must be numbers.");
}

Interpreter::Answer Interpreter::compareTexts(const Binary& node) {
  const String* const left = findText(node.left);
  const String* const right = left ? findText(node.right) : nullptr;
  if (!right) return Answer::unknown;
  return (*left == *right) == (node.operator_.type == TokenType::equal) ? Answer::yes : Answer::no;
}

/// The text that a literal, a variable or an entry of one is, where it stands; null for all else, and for what isn't
/// found at once. Nothing runs, so that the text can stay there.
const String* Interpreter::findText(const Expression& expression) noexcept {
  if (const String* const literal = literalText(expression)) return literal;
  const Value* const value = findValue(expression);
  return value ? value->string() : nullptr;
}

Value Interpreter::makeIntegerRange(const Token& operator_, double lower, double upper) {
  if (operator_.type == TokenType::openRange) return makeRef<CountableRange>(integer(lower), integer(upper));
  if (operator_.type == TokenType::closedRange) return makeRef<CountableClosedRange>(integer(lower), integer(upper));
  fail(operator_.range, "Invalid binary operator.");
}

bool Interpreter::areSame(const Value& left, const Value& right, const Range& range) {
  return left.isObject() || right.isObject() ? areEqual(left, right, range) : left == right;
}

bool Interpreter::areEqual(const Value& left, const Value& right, const Range& range) {
  if (left.string() && right.string()) return *left.string() == *right.string();
  if (left.array() && right.array()) return left.array() == right.array() || left == right;
  for (const Value* side : {&left, &right}) {
    if (!side->isObject()) continue;
    const std::optional<Value> equals = side->get("equals");
    if (equals && equals->callable()) return callEquals(*equals->callable(), left, right, range);
  }
  if (left.isNil() || right.isNil()) return left.isNil() && right.isNil();
  fail(range, "Objects must implement 'equals' function.");
}

bool Interpreter::callEquals(const Callable& equals, const Value& left, const Value& right, const Range& range) {
  if (equals.arity() != 2) fail(range, "Object's 'equals' function must take two arguments.");
  const auto reportError = [&](const String& message) { fail(range, message); };
  const Value result = equals.call(*this, {left, right}, reportError);
  if (!result.boolean()) fail(range, "Objects must implement 'equals' function.");
  return *result.boolean();
}

Value Interpreter::valueOf(const Logical& node) {
  const Token& operator_ = node.operator_;
  const bool left = evaluateOperand(node.left, operator_);
  if (operator_.type != TokenType::and_ && operator_.type != TokenType::or_) {
    fail(operator_.range, "Invalid binary operator.");
  }
  const bool isDecided = left == (operator_.type == TokenType::or_);
  return isDecided ? left : evaluateOperand(node.right, operator_);
}

bool Interpreter::evaluateOperand(const Expression& operand, const Token& operator_) {
  const Value value = evaluate(operand);
  if (!value.boolean()) fail(operator_.range, "Operand must be a boolean.");
  return *value.boolean();
}

Value Interpreter::valueOf(const Unary& node) {
  const Value right = evaluate(node.right);
  switch (node.operator_.type) {
    case TokenType::minus:
      if (!right.number()) fail(node.operator_.range, "Operand must be a number.");
      return -*right.number();
    case TokenType::not_:
      if (!right.boolean()) fail(node.operator_.range, "Operand must be a boolean.");
      return !*right.boolean();
    default:
      fail(node.operator_.range, "Invalid unary operator.");
  }
}

Value Interpreter::valueOf(const Tuple& node) {
  std::vector<Value> values;
  values.reserve(node.names.size());
  for (const Token& name : node.names) values.push_back(readVariable(name, node.id));
  return Array(std::move(values));
}

/// The names of included files are found by the walk outward, which goes quicker the next time.
Value Interpreter::lookUp(const Variable& node) {
  const Bindings* const names = locals.find(node.id) ? nullptr : current().namesWith(node.name.lexeme);
  if (!names) return readVariable(node.name, node.id);
  const std::uint32_t place = names->placeOf(node.name.lexeme);
  node.place.set(place);
  const Value& value = names->bindings()[place].value;
  return value.isUninitialized() ? readVariable(node.name, node.id) : value;
}

/// Reads any variable, wherever it stands, or fails.
Value Interpreter::readVariable(const Token& name, const Uuid& id) {
  const Local* const local = locals.find(id);
  Value value = local ? current().get(name, *local) : current().get(name);
  if (value.isUninitialized()) {
    fail(name.range, String::concatenation({"Uninitialized variable '", name.lexeme, "'."}));
  }
  return value;
}

Value Interpreter::valueOf(const Assignment& node) {
  if (const StringExpression* text = textThatGrows(node)) return grow(node, *text);
  Value value = evaluate(node.value);
  store(node, value);
  return value;
}

/// The same where nobody asks for the value.
void Interpreter::assign(const Assignment& node) {
  if (const StringExpression* text = textThatGrows(node)) {
    grow(node, *text);
  } else {
    store(node, evaluate(node.value));
  }
}

Value Interpreter::valueOf(const TypeCheck& node) {
  const Value value = evaluate(node.instance);
  return value.isOf(MetaType(node.type.lexeme));
}

Value Interpreter::valueOf(const ArrayLiteral& node) {
  std::vector<Value> elements;
  elements.reserve(node.elements.size());
  for (const Expression& element : node.elements) elements.push_back(evaluate(element));
  return Array(std::move(elements));
}

Value Interpreter::valueOf(const DictionaryLiteral& node) {
  Dictionary dictionary;
  dictionary.reserve(node.elements.size());
  for (const auto& [keyExpression, valueExpression] : node.elements) {
    Value key = evaluateKey(keyExpression, keyExpression.range());
    dictionary.set(std::move(key), evaluate(valueExpression));
  }
  return dictionary;
}

Value Interpreter::evaluateKey(const Expression& expression, const Range& range) {
  Value key = evaluate(expression);
  if (!key.boolean() && !key.number() && !key.openRange() && !key.closedRange() && !key.string()) {
    fail(range, "Dictionary keys can only be numbers, ranges, booleans or strings.");
  }
  return key;
}

}  // namespace velto
