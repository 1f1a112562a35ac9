// Calls, and the declaration of functions.
#include <boost/container/small_vector.hpp>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/Function.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Value/StringMember.h"

namespace velto {

Value Interpreter::valueOf(const Call& node) {
  if (node.callee.kind() == ExpressionKinds::of<Member>) return callMember(node, node.callee.record<Member>());
  return call(node, evaluate(node.callee));
}

/// A form of a text comes without the function that the member is.
Value Interpreter::callMember(const Call& node, const Member& member) {
  Value callee = evaluate(member.object);
  if (callee.string() && node.arguments.empty()) {
    if (const StringForm form = stringForm(member.member.lexeme)) return form(*callee.string());
  }
  callee = memberOf(callee, member);
  return call(node, callee);
}

Value Interpreter::call(const Call& node, const Value& callee) {
  const Callable* callable = callee.callable();
  if (!callable) fail(node.paren.range, "Can only call functions and classes.");
  boost::container::small_vector<Value, 4> arguments;
  evaluateArguments(node, *callable, arguments);
  const auto reportError = [&](const String& message) { fail(node.paren.range, message); };
  try {
    return callable->call(*this, std::span<const Value>(arguments.data(), arguments.size()), reportError);
  } catch (const VeltoError&) {
    // One line for each call on the way out, innermost first: the language's stack trace.
    logger_->report(Message::Level::info, String::concatenation({callable->describe(arguments), " called here"}),
                    node.range);
    throw;
  }
}

template <typename ArgumentValues>
void Interpreter::evaluateArguments(const Call& node, const Callable& callable, ArgumentValues& arguments) {
  const std::span<const Label> labels = callable.labels();
  if (labels.size() != node.arguments.size()) {
    fail(node.paren.range, String::concatenation({"Expected ", decimal(callable.arity()), " arguments but got ",
                                                  decimal(static_cast<Int>(node.arguments.size())), "."}));
  }
  arguments.reserve(labels.size());
  for (std::size_t index = 0; index < labels.size(); ++index) {
    arguments.push_back(evaluate(node.arguments[index].value));
    checkLabel(labels[index], node.arguments[index]);
  }
}

void Interpreter::checkLabel(const Label& expected, const Call::Argument& argument) {
  const bool isMatch = argument.label ? expected == argument.label->lexeme : !expected;
  if (isMatch) return;
  fail(argument.label ? argument.label->range : argument.value.range(),
       String::concatenation({"Expected argument label '", expected.value_or(String()), "'."}));
}

void Interpreter::visitFunctionDeclaration(const FunctionDeclaration& node) {
  current().define(node.name, makeRef<Function>(node, stack_.back()));
}

}  // namespace velto
