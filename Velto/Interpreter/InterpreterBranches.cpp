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
  const auto& comparison = condition.record<Binary>();
  const double* const left = findNumber(comparison.left);
  const double* const right = left ? findNumber(comparison.right) : nullptr;
  if (!right) return false;
  switch (comparison.operator_.type) {
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
  if (condition.kind() == ExpressionKinds::of<Binary> && isEquality(condition.record<Binary>())) {
    const Answer answer = compareTexts(condition.record<Binary>());
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

void Interpreter::visitIf(const If& node) {
  if (const Statements* branch = chooseBranch(node)) executeBlock(*branch);
}

/// The statements that have to run, or null. Parts that aren't always needed stand apart: then this saves no registers.
const Statements* Interpreter::chooseBranch(const If& node) {
  bool isMet = false;
  if (!node.mainBranch.condition || !compareAtOnce(*node.mainBranch.condition, isMet)) return chooseAnyBranch(node);
  if (isMet) return &node.mainBranch.statements;
  return node.elseIfBranches.empty() && !node.elseBranch ? nullptr : chooseOtherBranch(node);
}

const Statements* Interpreter::chooseAnyBranch(const If& node) {
  const IfBranch& main = node.mainBranch;
  return !main.condition || evaluateAnyCondition(*main.condition) ? &main.statements : chooseOtherBranch(node);
}

const Statements* Interpreter::chooseOtherBranch(const If& node) {
  for (const IfBranch& branch : node.elseIfBranches) {
    if (!branch.condition || evaluateCondition(*branch.condition)) return &branch.statements;
  }
  if (!node.elseBranch) return nullptr;
  const IfBranch& last = *node.elseBranch;
  return !last.condition || evaluateCondition(*last.condition) ? &last.statements : nullptr;
}

/// Runs the body once, in the current scope, which it leaves as good as new; false when the loop has to end.
[[gnu::always_inline]] inline bool Interpreter::executeLoopBody(const Statements& body) {
  executeList(body);
  renewScope();
  return !jumps_.areAny() || takeLoopJumps();
}

void Interpreter::visitWhile(const While& node) {
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

void Interpreter::visitFor(const For& node) {
  const Value sequence = evaluate(node.sequence);
  const ScopeGuard loop(*this);
  for (const Token& name : node.tuple.names) current().define(name.lexeme, Value::uninitialized());
  iterate(node, sequence);
}

void Interpreter::iterate(const For& node, const Value& sequence) {
  if (const CountableRange* open = sequence.openRange()) {
    iterateIntegers(node, loopVariable(node), open->lower, open->upper);
  } else if (const CountableClosedRange* closed = sequence.closedRange()) {
    const Token& name = loopVariable(node);
    if (closed->upper == std::numeric_limits<Int>::max()) fatalError("A loop can't run up to the largest integer.");
    iterateIntegers(node, name, closed->lower, closed->upper + 1);
  } else if (const Array* array = sequence.array()) {
    iterateArray(node, loopVariable(node), *array);
  } else if (const Dictionary* dictionary = sequence.dictionary()) {
    iterateDictionary(node, *dictionary);
  } else {
    fail(node.sequence.range(), "For loop needs a sequence.");
  }
}

/// The scope of the loop lies around that of the body, which is the current one. The variable stands there at `place`,
/// unless a host has changed the scope.
[[gnu::always_inline]] inline void Interpreter::assignLoopVariable(const Token& name, std::uint32_t place,
                                                                   Value value) {
  Environment& loop = stack_.belowTop();
  if (Value* variable = loop.values.findAt(place, name.lexeme)) {
    *variable = std::move(value);
  } else {
    loop.assign(name, std::move(value));
  }
}

void Interpreter::iterateIntegers(const For& node, const Token& name, Int lower, Int upper) {
  const ScopeGuard body(*this);
  for (Int number = lower; number < upper; ++number) {
    assignLoopVariable(name, 0, number);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::iterateArray(const For& node, const Token& name, const Array& array) {
  const ScopeGuard body(*this);
  for (const Value& element : array.elements()) {
    assignLoopVariable(name, 0, element);
    if (!executeLoopBody(node.body)) return;
  }
}

const Token& Interpreter::loopVariable(const For& node) {
  if (node.tuple.names.size() != 1) fail(node.tuple.range, "For loop expected a single variable.");
  return node.tuple.names.front();
}

void Interpreter::iterateDictionary(const For& node, const Dictionary& dictionary) {
  if (node.tuple.names.size() != 2) fail(node.tuple.range, "For loop expected two variables.");
  const ScopeGuard body(*this);
  for (const auto& [key, value] : dictionary.entries()) {
    assignLoopVariable(node.tuple.names[0], 0, key);
    assignLoopVariable(node.tuple.names[1], 1, value);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::visitSwitch(const Switch& node) {
  const Value value = evaluate(node.expr);
  for (const Case& case_ : node.cases) {
    if (matches(value, case_.pattern)) return executeBlock(case_.body);
  }
  executeBlock(node.defaultBody);
}

bool Interpreter::matches(const Value& value, const Pattern& pattern) {
  if (const Token* type = std::get_if<Token>(&pattern)) return value.isOf(MetaType(type->lexeme));
  const Expression& expression = std::get<Expression>(pattern);
  const Value patternValue = evaluate(expression);
  return areSame(value, patternValue, expression.range());
}

/// Cases are read by their `switch`, and never visited.
void Interpreter::visitCase(const Case&) {
}

void Interpreter::visitInclude(const Include& node) {
  const Value file = evaluate(node.file);
  const String* path = file.string();
  if (!path) fail(node.include.range, "Include needs a string.");
  const ScopeGuard scope(*this);
  const ParseCache::FileStatements statements = parseIncluded(node, *path);
  interpret(*statements);
}

ParseCache::FileStatements Interpreter::parseIncluded(const Include& node, const String& path) {
  try {
    return parseCache_.getOrParse(resolveInclude(path), Scanner::Mode::template_);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    fail(node.range(), String::concatenation({"Cannot include '", path, "': ", error.what(), "."}));
  }
}

/// A loop includes the same files again and again.
const Url& Interpreter::resolveInclude(const String& path) {
  const auto known = includes_.find(path);
  return known != includes_.end() ? known->second : includes_.emplace(path, resolve(path)).first->second;
}

void Interpreter::visitReturn(const Return& node) {
  Value value = valueOf(node);
  jumps_.set(Jumps::Kind::return_, node.keyword.range);
  returnValue_ = std::move(value);
}

void Interpreter::visitBreak(const Break& node) {
  jumps_.set(Jumps::Kind::break_, node.token.range);
}

void Interpreter::visitContinue(const Continue& node) {
  jumps_.set(Jumps::Kind::continue_, node.token.range);
}

}  // namespace velto
