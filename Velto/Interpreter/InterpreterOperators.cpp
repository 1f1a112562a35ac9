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

Value Interpreter::valueOf(const NodeOf<Literal>& node) {
  return node.value();
}

Value Interpreter::valueOf(const NodeOf<Grouping>& node) {
  return evaluate(node.expression);
}

[[gnu::always_inline]] inline Value Interpreter::calculate(const NodeOf<Binary>& node, double left, double right) {
  switch (node.operator_()) {
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
      return makeIntegerRange(node, left, right);
  }
}

/// The numbers that literals and variables are needn't be taken from where they stand.
Value Interpreter::valueOf(const NodeOf<Binary>& node) {
  const double* const left = findNumber(node.left);
  const double* const right = left ? findNumber(node.right) : nullptr;
  return right ? calculate(node, *left, *right) : combine(node);
}

Value Interpreter::combine(const NodeOf<Binary>& node) {
  if (isEquality(node)) {
    const Answer answer = compareTexts(node);
    if (answer != Answer::unknown) return answer == Answer::yes;
  }
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node);
  const Value left = evaluate(node.left);
  const Value right = evaluate(node.right);
  if (left.number() && right.number()) return calculate(node, *left.number(), *right.number());
  return compare(node, left, right);
}

/// What aren't two numbers can only be compared.
Value Interpreter::compare(const NodeOf<Binary>& node, const Value& left, const Value& right) {
  if (!isEquality(node)) fail(node, &Binary::operator_, "Operands must be numbers.");
  return areSame(left, right, [&] { return recordOf(node).operator_.range; }) == (node.operator_() == TokenType::equal);
}

Interpreter::Answer Interpreter::compareTexts(const NodeOf<Binary>& node) {
  const String* const left = findText(node.left);
  const String* const right = left ? findText(node.right) : nullptr;
  if (!right) return Answer::unknown;
  return (*left == *right) == (node.operator_() == TokenType::equal) ? Answer::yes : Answer::no;
}

/// The text that a literal, a variable or an entry of one is, where it stands; null for all else, and for what isn't
/// found at once. Nothing runs, so that the text can stay there.
const String* Interpreter::findText(const Expression& expression) noexcept {
  if (const String* const literal = literalText(expression)) return literal;
  const Value* const value = findValue(expression);
  return value ? value->string() : nullptr;
}

Value Interpreter::makeIntegerRange(const NodeOf<Binary>& node, double lower, double upper) {
  if (node.operator_() == TokenType::openRange) return makeRef<CountableRange>(integer(lower), integer(upper));
  if (node.operator_() == TokenType::closedRange) return makeRef<CountableClosedRange>(integer(lower), integer(upper));
  fail(node, &Binary::operator_, "Invalid binary operator.");
}

bool Interpreter::areEqual(const Value& left, const Value& right, const Range& range) {
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

Value Interpreter::valueOf(const NodeOf<Logical>& node) {
  const bool left = evaluateOperand(node.left, node);
  if (node.operator_() != TokenType::and_ && node.operator_() != TokenType::or_) {
    fail(node, &Logical::operator_, "Invalid binary operator.");
  }
  const bool isDecided = left == (node.operator_() == TokenType::or_);
  return isDecided ? left : evaluateOperand(node.right, node);
}

bool Interpreter::evaluateOperand(const Expression& operand, const NodeOf<Logical>& node) {
  const Value value = evaluate(operand);
  if (!value.boolean()) fail(node, &Logical::operator_, "Operand must be a boolean.");
  return *value.boolean();
}

Value Interpreter::valueOf(const NodeOf<Unary>& node) {
  const Value right = evaluate(node.right);
  switch (node.operator_()) {
    case TokenType::minus:
      if (!right.number()) fail(node, &Unary::operator_, "Operand must be a number.");
      return -*right.number();
    case TokenType::not_:
      if (!right.boolean()) fail(node, &Unary::operator_, "Operand must be a boolean.");
      return !*right.boolean();
    default:
      fail(node, &Unary::operator_, "Invalid unary operator.");
  }
}

Value Interpreter::valueOf(const NodeOf<Tuple>& node) {
  const Tuple record = recordOf(node);
  std::vector<Value> values;
  values.reserve(record.names.size());
  for (const Token& name : record.names) values.push_back(readVariable(name, record.id));
  return Array(std::move(values));
}

/// The names of included files are found by the walk outward, which goes quicker the next time.
Value Interpreter::lookUp(const NodeOf<Variable>& node) {
  const Bindings* const names = locals.find(node.id) ? nullptr : current().namesWith(node.name);
  if (!names) return readVariable(node);
  const std::uint32_t place = names->placeOf(node.name);
  node.place.set(place);
  const Value& value = names->bindings()[place].value;
  return value.isUninitialized() ? readVariable(node) : value;
}

Value Interpreter::readVariable(const NodeOf<Variable>& node) {
  return readVariable(recordOf(node).name, node.id);
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

Value Interpreter::valueOf(const NodeOf<Assignment>& node) {
  if (const NodeOf<StringExpression>* text = textThatGrows(node)) return grow(node, *text);
  Value value = evaluate(node.value);
  store(node, value);
  return value;
}

/// Where the variable isn't found where it stood last.
void Interpreter::storeAnew(const NodeOf<Assignment>& node, Value value, const Local& local) {
  current().assign(recordOf(node).name, std::move(value), local);
}

/// The nearest scope that has the name is looked for as the program runs.
void Interpreter::storeOutward(const NodeOf<Assignment>& node, Value value) {
  if (Value* const variable = current().find(node.name)) {
    *variable = std::move(value);
  } else {
    current().assign(recordOf(node).name, std::move(value));
  }
}

/// The same where nobody asks for the value.
void Interpreter::assign(const NodeOf<Assignment>& node) {
  if (const NodeOf<StringExpression>* text = textThatGrows(node)) {
    grow(node, *text);
  } else {
    store(node, evaluate(node.value));
  }
}

Value Interpreter::valueOf(const NodeOf<TypeCheck>& node) {
  const Value value = evaluate(node.instance);
  return value.isOf(MetaType(node.type));
}

Value Interpreter::valueOf(const NodeOf<ArrayLiteral>& node) {
  std::vector<Value> elements;
  elements.reserve(node.count);
  for (const Expression& element : node.elements()) elements.push_back(evaluate(element));
  return Array(std::move(elements));
}

Value Interpreter::valueOf(const NodeOf<DictionaryLiteral>& node) {
  Dictionary dictionary;
  dictionary.reserve(node.count);
  for (const auto& element : node.elements()) {
    Value key = evaluateKey(element.key, [&] { return element.key.range(); });
    dictionary.set(std::move(key), evaluate(element.value));
  }
  return dictionary;
}

}  // namespace velto
