// Calls, and the declaration of functions.
#include <utility>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/ArgumentList.h"
#include "Velto/Interpreter/Function.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Value/RecentForms.h"

namespace velto {

Value Interpreter::takeReturnValue() {
  if (!jumps_.take(Jumps::Kind::return_)) return Value::nil();
  return std::exchange(returnValue_, Value::nil());
}

/// A `return` that stands in the body itself needs no token, which would be taken right here.
[[gnu::always_inline]] inline Value Interpreter::executeBody(const Statements& body) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(body);
  for (const Statement& statement : body) {
    if (statement.kind() == StatementKinds::of<Return>) return valueOf(statement.record<Return>());
    execute(statement);
    if (jumps_.areAny()) return takeReturnValue();
  }
  return Value::nil();
}

/// A name that is there already is refused by `define`, which tells so.
[[gnu::always_inline]] inline void Interpreter::bind(const std::vector<FunctionParameter>& parameters,
                                                     Arguments arguments) {
  Environment& scope = current();
  auto argument = arguments.begin();
  for (const FunctionParameter& parameter : parameters) {
    if (argument == arguments.end()) break;
    if (!scope.values.add(parameter.name.lexeme, *argument)) scope.define(parameter.name, *argument);
    ++argument;
  }
}

/// For what isn't a call of the program itself: callbacks of native functions, and hosts.
Value Interpreter::call(const Function& function, Arguments arguments) {
  if (depth_ == 0 && !isCalled_) [[unlikely]]
    return callAtFirst(function, arguments);
  return run(function, arguments);
}

/// A host calls, on whichever thread: that is where the stack is measured, and not in the calls inside.
Value Interpreter::callAtFirst(const Function& function, Arguments arguments) {
  struct Called {
    bool& isCalled;
    ~Called() { isCalled = false; }
  };
  guard_ = StackGuard();
  isCalled_ = true;
  const Called called{isCalled_};
  return call(function, arguments);
}

[[gnu::always_inline]] inline Value Interpreter::run(const Function& function, Arguments arguments) {
  // The scope hangs on the declaring scope, not on the caller's.
  const ScopeGuard guard(*this, *function.closure());
  bind(function.declaration().parameters, arguments);
  return executeBody(function.declaration().body);
}

Value Interpreter::valueOf(const Call& node) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node.range);
  if (node.callee.kind() == ExpressionKinds::of<Member>) return callMember(node, node.callee.record<Member>());
  const Value callee = calleeOf(node.callee);
  const Callable& callable = callableOf(node, callee);
  return callable.isDeclared() ? call(node, static_cast<const Function&>(callable)) : callOther(node, callable);
}

[[gnu::always_inline]] inline Value Interpreter::calleeOf(const Expression& callee) {
  if (callee.kind() != ExpressionKinds::of<Variable>) return evaluateNode(callee);
  const auto& variable = callee.record<Variable>();
  const Value* const value = findAtOnce(variable);
  return value ? *value : lookUp(variable);
}

/// A form of a text comes without the function that the member is.
Value Interpreter::callMember(const Call& node, const Member& member) {
  Value callee = evaluate(member.object);
  if (callee.string() && node.arguments.empty()) {
    if (const StringForm form = stringForm(member.member.lexeme)) return recentForms_->formOf(*callee.string(), form);
  }
  callee = memberOf(callee, member);
  return callOther(node, callableOf(node, callee));
}

/// Any callable, and apart, so that calls of the program's own functions by their names stay lean.
[[gnu::noinline]] Value Interpreter::callOther(const Call& node, const Callable& callee) {
  return call(node, callee);
}

inline const Callable& Interpreter::callableOf(const Call& node, const Value& callee) {
  const Callable* const callable = callee.callable();
  if (!callable) fail(node.paren.range, "Can only call functions and classes.");
  return *callable;
}

[[gnu::always_inline]] inline Value Interpreter::evaluateArgument(const Call::Argument& argument, const Label& label) {
  Value value = evaluate(argument.value);
  if (label || argument.label) checkLabel(label, argument);
  return value;
}

template <typename Callee>
inline Value Interpreter::call(const Call& node, const Callee& callee) {
  const std::span<const Label> labels = callee.labels();
  if (labels.size() != node.arguments.size()) [[unlikely]]
    failArgumentCount(node, callee);
  ArgumentList arguments(labels.size());
  for (std::size_t index = 0; index < labels.size(); ++index) {
    arguments.add(evaluateArgument(node.arguments[index], labels[index]));
  }
  try {
    return callWith(node, callee, arguments.values());
  } catch (const VeltoError&) {
    tellOfCall(node, callee, arguments.values());
    throw;
  }
}

/// One line for each call on the way out, innermost first: the language's stack trace.
void Interpreter::tellOfCall(const Call& node, const Callable& callee, std::span<const Value> arguments) {
  logger_->report(Message::Level::info, String::concatenation({callee.describe(arguments), " called here"}),
                  node.range);
}

inline Value Interpreter::callWith(const Call&, const Function& function, Arguments arguments) {
  return run(function, arguments);
}

inline Value Interpreter::callWith(const Call& node, const Callable& callee, Arguments arguments) {
  return callee.call(*this, arguments, [&](const String& message) { fail(node.paren.range, message); });
}

void Interpreter::failArgumentCount(const Call& node, const Callable& callee) {
  fail(node.paren.range, String::concatenation({"Expected ", decimal(callee.arity()), " arguments but got ",
                                                decimal(static_cast<Int>(node.arguments.size())), "."}));
}

void Interpreter::checkLabel(const Label& expected, const Call::Argument& argument) {
  const bool isMatch = argument.label ? expected == argument.label->lexeme : !expected;
  if (isMatch) return;
  fail(argument.label ? argument.label->range : argument.value.range(),
       String::concatenation({"Expected argument label '", expected.value_or(String()), "'."}));
}

void Interpreter::visitFunctionDeclaration(const FunctionDeclaration& node) {
  survivors_.expect(stack_.size());  // each of these scopes may be held by a function of its own
  current().define(node.name, makeRef<Function>(node, stack_.top()));
}

}  // namespace velto
