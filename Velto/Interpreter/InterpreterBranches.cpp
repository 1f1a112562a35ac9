// The statements that steer the run: branches, loops, includes and the tokens that leave them.
#include <limits>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/MetaType.h"

namespace velto {

void Interpreter::visitIf(const If& node) {
  if (executeBranch(node.mainBranch)) return;
  for (const IfBranch& branch : node.elseIfBranches) {
    if (executeBranch(branch)) return;
  }
  if (node.elseBranch) executeBranch(*node.elseBranch);
}

bool Interpreter::executeBranch(const IfBranch& branch) {
  if (branch.condition && !evaluateCondition(*branch.condition)) return false;
  executeBlock(branch.statements);
  return true;
}

bool Interpreter::evaluateCondition(const Expression& condition) {
  const Value value = evaluate(condition);
  if (!value.boolean()) fail(condition.range(), "Condition must evaluate to a boolean value.");
  return *value.boolean();
}

void Interpreter::visitWhile(const While& node) {
  while (evaluateCondition(node.condition) && executeLoopBody(node.body)) {
  }
}

/// Runs the body once; false when the loop has to end.
bool Interpreter::executeLoopBody(const Statements& body) {
  executeBlock(body);
  if (breakToken_) {
    breakToken_.reset();
    return false;
  }
  continueToken_.reset();
  return !returnToken_;
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

void Interpreter::iterateIntegers(const For& node, const Token& name, Int lower, Int upper) {
  for (Int number = lower; number < upper; ++number) {
    current().assign(name, number);
    if (!executeLoopBody(node.body)) return;
  }
}

void Interpreter::iterateArray(const For& node, const Token& name, const Array& array) {
  for (const Value& element : array.elements()) {
    current().assign(name, element);
    if (!executeLoopBody(node.body)) return;
  }
}

const Token& Interpreter::loopVariable(const For& node) {
  if (node.tuple.names.size() != 1) fail(node.tuple.range, "For loop expected a single variable.");
  return node.tuple.names.front();
}

void Interpreter::iterateDictionary(const For& node, const Dictionary& dictionary) {
  if (node.tuple.names.size() != 2) fail(node.tuple.range, "For loop expected two variables.");
  for (const auto& [key, value] : dictionary.entries()) {
    current().assign(node.tuple.names[0], key);
    current().assign(node.tuple.names[1], value);
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
    return parseCache_.getOrParse(resolve(path), Scanner::Mode::template_);
  } catch (const Error& error) {
    fail(node.range(), String::concatenation({"Cannot include '", path, "': ", error.what(), "."}));
  }
}

void Interpreter::visitReturn(const Return& node) {
  Value value = node.value ? evaluate(*node.value) : Value::nil();
  returnToken_ = node.keyword;
  returnValue_ = std::move(value);
}

void Interpreter::visitBreak(const Break& node) {
  breakToken_ = node.token;
}

void Interpreter::visitContinue(const Continue& node) {
  continueToken_ = node.token;
}

}  // namespace velto
