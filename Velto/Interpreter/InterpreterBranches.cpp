// The statements that steer the run: branches, loops, includes and the tokens that leave them.
#include <limits>
#include <new>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/MetaType.h"

namespace velto {

/// Whether this compares two numbers that are found at once, as most conditions do: what comes of it is told without
/// making a value.
[[gnu::always_inline]] inline bool Interpreter::compareAtOnce(const Expression& condition, bool& isMet) noexcept {
  if (condition.kind() != ExpressionKinds::of<Binary>) return false;
  const auto& comparison = condition.node<Binary>();
  const double* const left = findNumber(comparison.left);
  const double* const right = left ? findNumber(comparison.right) : nullptr;
  if (!right) return false;
  switch (comparison.operator_()) {
    case TokenType::equal:
      isMet = *left == *right;
      return true;
    case TokenType::notEqual:
      isMet = *left != *right;
      return true;
    case TokenType::greater:
      isMet = *left > *right;
      return true;
    case TokenType::greaterEqual:
      isMet = *left >= *right;
      return true;
    case TokenType::less:
      isMet = *left < *right;
      return true;
    case TokenType::lessEqual:
      isMet = *left <= *right;
      return true;
    default:
      return false;
  }
}

[[gnu::always_inline]] inline bool Interpreter::evaluateAnyCondition(const Expression& condition) {
  if (condition.kind() == ExpressionKinds::of<Binary> && isEquality(condition.node<Binary>())) {
    const Answer answer = compareTexts(condition.node<Binary>());
    if (answer != Answer::unknown) return answer == Answer::yes;
  }
  const Value value = evaluate(condition);
  if (!value.boolean()) fail(condition.range(), "Condition must evaluate to a boolean value.");
  return *value.boolean();
}

bool Interpreter::evaluateCondition(const Expression& condition) {
  bool isMet = false;
  return compareAtOnce(condition, isMet) ? isMet : evaluateAnyCondition(condition);
}

void Interpreter::execute(const NodeOf<If>& node) {
  if (const StatementList* branch = chooseBranch(node)) executeBlock(*branch);
}

/// The statements that have to run, or null. Parts that aren't always needed stand apart: then this saves no registers.
const StatementList* Interpreter::chooseBranch(const NodeOf<If>& node) {
  bool isMet = false;
  const NodeOf<If>::Branch& main = node.mainBranch();
  if (!main.condition || !compareAtOnce(*main.condition, isMet)) return chooseAnyBranch(node);
  if (isMet) return &main.body;
  return node.count == 1 ? nullptr : chooseOtherBranch(node);
}

const StatementList* Interpreter::chooseAnyBranch(const NodeOf<If>& node) {
  const NodeOf<If>::Branch& main = node.mainBranch();
  return !main.condition || evaluateAnyCondition(*main.condition) ? &main.body : chooseOtherBranch(node);
}

const StatementList* Interpreter::chooseOtherBranch(const NodeOf<If>& node) {
  for (const NodeOf<If>::Branch& branch : node.otherBranches()) {
    if (!branch.condition || evaluateCondition(*branch.condition)) return &branch.body;
  }
  return nullptr;
}

/// Runs the body once, in the current scope, which it leaves as good as new; false when the loop has to end.
[[gnu::always_inline]] inline bool Interpreter::executeLoopBody(const StatementList& body) {
  executeList(body);
  renewScope();
  return !jumps_.areAny() || takeLoopJumps();
}

void Interpreter::execute(const NodeOf<While>& node) {
  while (evaluateCondition(node.condition)) {
    const ScopeGuard body(*this);
    if (!executeLoopBody(node.body)) return;
  }
}

/// False if one of them ends the loop.
bool Interpreter::takeLoopJumps() {
  if (jumps_.take(Jumps::Kind::break_)) return false;
  jumps_.take(Jumps::Kind::continue_);
  return !jumps_.has(Jumps::Kind::return_);
}

void Interpreter::execute(const NodeOf<For>& node) {
  const Value sequence = evaluate(node.sequence);
  const ScopeGuard loop(*this);
  for (const NodeOf<For>::Name& name : node.names()) current().define(name.lexeme, Value::uninitialized());
  iterate(node, sequence);
}

void Interpreter::iterate(const NodeOf<For>& node, const Value& sequence) {
  if (const CountableRange* open = sequence.openRange()) {
    expectLoopVariable(node);
    iterateIntegers(node, open->lower, open->upper);
  } else if (const CountableClosedRange* closed = sequence.closedRange()) {
    expectLoopVariable(node);
    if (closed->upper == std::numeric_limits<Int>::max()) fatalError("A loop can't run up to the largest integer.");
    iterateIntegers(node, closed->lower, closed->upper + 1);
  } else if (const Array* array = sequence.array()) {
    expectLoopVariable(node);
    iterateArray(node, *array);
  } else if (const Dictionary* dictionary = sequence.dictionary()) {
    iterateDictionary(node, *dictionary);
  } else {
    fail(node.sequence.range(), "For loop needs a sequence.");
  }
}

/// The scope of the loop lies around that of the body, which is the current one. The variable stands there at `place`,
/// unless a host has changed the scope.
[[gnu::always_inline]] inline void Interpreter::assignLoopVariable(const NodeOf<For>& node, std::uint32_t place,
                                                                   Value value) {
  if (Value* variable = stack_.belowTop().values.findAt(place, node.names()[place].lexeme)) {
    *variable = std::move(value);
  } else {
    assignMovedLoopVariable(node, place, std::move(value));
  }
}

void Interpreter::assignMovedLoopVariable(const NodeOf<For>& node, std::uint32_t place, Value value) {
  Environment& loop = stack_.belowTop();
  if (Value* variable = loop.find(node.names()[place].lexeme)) {
    *variable = std::move(value);
  } else {
    loop.assign(recordOf(node).tuple.names[place], std::move(value));
  }
}

void Interpreter::iterateIntegers(const NodeOf<For>& node, Int lower, Int upper) {
  const ScopeGuard body(*this);
  for (Int number = lower; number < upper; ++number) {
    assignLoopVariable(node, 0, number);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::iterateArray(const NodeOf<For>& node, const Array& array) {
  const ScopeGuard body(*this);
  for (const Value& element : array.elements()) {
    assignLoopVariable(node, 0, element);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::expectLoopVariable(const NodeOf<For>& node) {
  if (node.count != 1) fail(recordOf(node).tuple.range, "For loop expected a single variable.");
}

void Interpreter::iterateDictionary(const NodeOf<For>& node, const Dictionary& dictionary) {
  if (node.count != 2) fail(recordOf(node).tuple.range, "For loop expected two variables.");
  const ScopeGuard body(*this);
  for (const auto& [key, value] : dictionary.entries()) {
    assignLoopVariable(node, 0, key);
    assignLoopVariable(node, 1, value);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::execute(const NodeOf<Switch>& node) {
  const Value value = evaluate(node.expr);
  for (const CaseParts& clause : node.cases()) {
    if (matches(value, clause)) return executeBlock(clause.body);
  }
  executeBlock(node.defaultBody);
}

bool Interpreter::matches(const Value& value, const CaseParts& clause) {
  if (!clause.expression) return value.isOf(MetaType(clause.type));
  const Value pattern = evaluate(*clause.expression);
  return areSame(value, pattern, [&] { return clause.expression->range(); });
}

void Interpreter::execute(const NodeOf<Include>& node) {
  const Value file = evaluate(node.file);
  const String* path = file.string();
  if (!path) fail(node, &Include::include, "Include needs a string.");
  const ScopeGuard scope(*this);
  const ParseCache::FileStatements statements = parseIncluded(node, *path);
  interpret(*statements);
}

ParseCache::FileStatements Interpreter::parseIncluded(const NodeOf<Include>& node, const String& path) {
  try {
    return parseCache_.getOrParse(resolveInclude(path), Scanner::Mode::template_);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    fail(rangeOf(node), String::concatenation({"Cannot include '", path, "': ", error.what(), "."}));
  }
}

/// A loop includes the same files again and again.
const Url& Interpreter::resolveInclude(const String& path) {
  const auto known = includes_.find(path);
  return known != includes_.end() ? known->second : includes_.emplace(path, resolve(path)).first->second;
}

void Interpreter::execute(const NodeOf<Return>& node) {
  Value value = valueOf(node);
  jumps_.set(Jumps::Kind::return_, keywordRangeOf(node));
  returnValue_ = std::move(value);
}

void Interpreter::execute(const NodeOf<Break>& node) {
  jumps_.set(Jumps::Kind::break_, rangeOf(node));
}

void Interpreter::execute(const NodeOf<Continue>& node) {
  jumps_.set(Jumps::Kind::continue_, rangeOf(node));
}

}  // namespace velto
