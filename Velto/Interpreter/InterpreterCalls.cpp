// Calls, and the declaration of functions.
#include <boost/container/static_vector.hpp>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/Function.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Value/RecentForms.h"

namespace velto {

namespace {

/// The arguments of nearly every call.
using FewValues = boost::container::static_vector<
    Value, 4, boost::container::static_vector_options_t<boost::container::throw_on_overflow<false>>>;

}  // namespace

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

Value Interpreter::run(const Function& function, Arguments arguments) {
  // The scope hangs on the declaring scope, not on the caller's.
  Ref<Environment> environment = makeScope(function.closure().get());
  auto argument = arguments.begin();
  for (const FunctionParameter& parameter : function.declaration().parameters) {
    if (argument == arguments.end()) break;
    if (!environment->values.add(parameter.name.lexeme, *argument)) environment->define(parameter.name, *argument);
    ++argument;
  }
  const ScopeGuard scope(*this, std::move(environment));
  return executeBody(function.declaration().body);
}

Value Interpreter::valueOf(const Call& node) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node.range);
  if (node.callee.kind() == ExpressionKinds::of<Member>) return callMember(node, node.callee.record<Member>());
  if (node.callee.kind() == ExpressionKinds::of<Variable>) {
    return call(node, valueOf(node.callee.record<Variable>()));
  }
  return call(node, evaluateNode(node.callee));
}

/// A form of a text comes without the function that the member is.
Value Interpreter::callMember(const Call& node, const Member& member) {
  Value callee = evaluate(member.object);
  if (callee.string() && node.arguments.empty()) {
    if (const StringForm form = stringForm(member.member.lexeme)) return recentForms_->formOf(*callee.string(), form);
  }
  callee = memberOf(callee, member);
  return call(node, callee);
}

Value Interpreter::call(const Call& node, const Value& callee) {
  const Callable* const callable = callee.callable();
  if (!callable) fail(node.paren.range, "Can only call functions and classes.");
  if (callable->isDeclared()) return call(node, static_cast<const Function&>(*callable));
  return call(node, *callable);
}

template <typename Callee>
Value Interpreter::call(const Call& node, const Callee& callee) {
  const std::span<const Label> labels = callee.labels();
  if (labels.size() != node.arguments.size()) failArgumentCount(node, callee);
  return labels.size() <= FewValues::static_capacity ? call<FewValues>(node, callee, labels)
                                                     : call<std::vector<Value>>(node, callee, labels);
}

template <typename Values, typename Callee>
Value Interpreter::call(const Call& node, const Callee& callee, std::span<const Label> labels) {
  Values arguments;
  for (std::size_t index = 0; index < labels.size(); ++index) {
    const Call::Argument& argument = node.arguments[index];
    arguments.push_back(evaluate(argument.value));
    if (labels[index] || argument.label) checkLabel(labels[index], argument);
  }
  const auto reportError = [&](const String& message) { fail(node.paren.range, message); };
  try {
    return callee.call(*this, std::span<const Value>(arguments.data(), arguments.size()), reportError);
  } catch (const VeltoError&) {
    // One line for each call on the way out, innermost first: the language's stack trace.
    logger_->report(Message::Level::info, String::concatenation({callee.describe(arguments), " called here"}),
                    node.range);
    throw;
  }
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
  current().define(node.name, makeRef<Function>(node, stack_.back()));
}

}  // namespace velto
