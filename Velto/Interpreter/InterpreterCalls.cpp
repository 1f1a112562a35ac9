// Calls, and the declaration of functions.
#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/ArgumentList.h"
#include "Velto/Interpreter/Function.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Value/RecentForms.h"

namespace velto {

/// Room for what a branch returns, made where it stays, and taken if it was made.
class Interpreter::ReturnedValue {
 public:
  template <std::invocable Make>
  [[gnu::always_inline]] void make(const Make& make) {
    new (memory_) Value(make());
  }
  /// What it was moved from holds nothing, so that nothing is lost if that doesn't end.
  [[gnu::always_inline]] Value take() noexcept { return std::move(*std::launder(reinterpret_cast<Value*>(memory_))); }

 private:
  alignas(Value) std::byte memory_[sizeof(Value)];
};

Value Interpreter::takeReturnValue() {
  if (!jumps_.take(Jumps::Kind::return_)) return Value::nil();
  return std::exchange(returnValue_, Value::nil());
}

/// A `return` that stands in the body itself, or in branches there, needs no token, which would be taken right here.
[[gnu::always_inline]] inline Value Interpreter::executeBody(const Statements& body) {
  for (const Statement& statement : body) {
    if (statement.kind() == StatementKinds::of<Return>) return valueOf(statement.record<Return>());
    if (statement.kind() == StatementKinds::of<If>) {
      if (const Statements* branch = chooseBranch(statement.record<If>())) {
        ReturnedValue result;
        if (returnsFrom(*branch, result)) return result.take();
      }
    } else {
      execute(statement);
    }
    if (jumps_.areAny()) return takeReturnValue();
  }
  return Value::nil();
}

/// Whether the branch returns, and has made `result`.
bool Interpreter::returnsFrom(const Statements& branch, ReturnedValue& result) {
  const ScopeGuard scope(*this);
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(branch);
  for (const Statement& statement : branch) {
    if (statement.kind() == StatementKinds::of<Return>) {
      result.make([&]() __attribute__((always_inline)) { return valueOf(statement.record<Return>()); });
      return true;
    }
    if (statement.kind() == StatementKinds::of<If>) {
      const Statements* const inner = chooseBranch(statement.record<If>());
      if (inner && returnsFrom(*inner, result)) return true;
    } else {
      execute(statement);
    }
    if (jumps_.areAny()) {
      result.make([&] { return takeReturnValue(); });
      return true;
    }
  }
  return false;
}

[[gnu::always_inline]] inline void Interpreter::bind(const Function& function, Arguments arguments) {
  const std::vector<FunctionParameter>& parameters = function.declaration().parameters;
  const auto nameAt = [&](std::size_t index) -> const String& { return parameters[index].name.lexeme; };
  if (current().values.addAllAgain(arguments.values(), function.parameterBits(), nameAt)) return;
  bindOthers(parameters, arguments);
}

/// A name that is there already is refused by `define`, which tells so.
void Interpreter::bindOthers(const std::vector<FunctionParameter>& parameters, Arguments arguments) {
  Environment& scope = current();
  for (std::size_t index = scope.values.size(); index < std::min(parameters.size(), arguments.size()); ++index) {
    const Token& name = parameters[index].name;
    if (!scope.values.add(name.lexeme, arguments[index])) scope.define(name, arguments[index]);
  }
}

/// For what isn't a call of a function by its name: callbacks of native functions, members, and hosts.
Value Interpreter::call(const Function& function, Arguments arguments) {
  if (depth_ == 0 && !isCalled_) [[unlikely]]
    return callAtFirst(function, arguments);
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(function.declaration().body);
  return run(function, arguments.first(function.labels().size()));
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

/// In the frame of the caller, who has asked whether the stack is exhausted.
[[gnu::always_inline]] inline Value Interpreter::run(const Function& function, Arguments arguments) {
  // The scope hangs on the declaring scope, not on the caller's.
  const ScopeGuard guard(*this, *function.closure());
  bind(function, arguments);
  return executeBody(function.declaration().body);
}

Value Interpreter::callValue(const Call& node) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node.range);
  // Held, since the variable may get another value meanwhile.
  const Callable* const found = findCallable(node.callee);
  const Ref<const Callable> callee = found ? Ref<const Callable>(found) : evaluateCallee(node);
  return callee->isDeclared() ? call(node, static_cast<const Function&>(*callee)) : callOther(node, *callee);
}

/// Null for what isn't found at once.
[[gnu::always_inline]] inline const Callable* Interpreter::findCallable(const Expression& callee) noexcept {
  if (callee.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const Value* const value = findAtOnce(callee.record<Variable>());
  return value ? value->callable() : nullptr;
}

Ref<const Callable> Interpreter::evaluateCallee(const Call& node) {
  const Value callee = evaluate(node.callee);
  return Ref<const Callable>(&callableOf(node, callee));
}

/// The form of texts that a call of a member asks for; null where it asks for anything else.
inline StringForm formOf(const Call& node, const Member& member) noexcept {
  return node.arguments.empty() ? stringForm(member.member.lexeme) : nullptr;
}

/// A form of a text comes without the function that the member is, and the text needn't be taken from where it stands.
Value Interpreter::callMember(const Call& node, const Member& member) {
  const StringForm form = formOf(node, member);
  const String* const text = form ? findText(member.object) : nullptr;
  return text ? recentForms_->formOf(*text, form) : callAnyMember(node, member);
}

Value Interpreter::callAnyMember(const Call& node, const Member& member) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node.range);
  Value callee = evaluate(member.object);
  const StringForm form = callee.string() ? formOf(node, member) : nullptr;
  if (form) return recentForms_->formOf(*callee.string(), form);
  callee = memberOf(callee, member);
  return callOther(node, callableOf(node, callee));
}

/// Any callable, and apart, so that calls of the program's own functions by their names stay lean.
Value Interpreter::callOther(const Call& node, const Callable& callee) {
  return call(node, callee);
}

inline const Callable& Interpreter::callableOf(const Call& node, const Value& callee) {
  const Callable* const callable = callee.callable();
  if (!callable) fail(node.paren.range, "Can only call functions and classes.");
  return *callable;
}

template <typename Callee>
inline Value Interpreter::call(const Call& node, const Callee& callee) {
  const std::span<const Label> labels = callee.labels();
  if (labels.size() != node.arguments.size()) [[unlikely]]
    failArgumentCount(node, callee);
  if (labels.size() > ArgumentList::few) [[unlikely]]
    return callWithMany(node, callee, labels);
  alignas(Value) std::byte memory[ArgumentList::few * sizeof(Value)];
  return call(node, callee, labels, memory);
}

template <typename Callee>
Value Interpreter::callWithMany(const Call& node, const Callee& callee, std::span<const Label> labels) {
  const std::unique_ptr<std::byte[]> memory(new std::byte[labels.size() * sizeof(Value)]);
  return call(node, callee, labels, memory.get());
}

template <typename Callee>
inline Value Interpreter::call(const Call& node, const Callee& callee, std::span<const Label> labels,
                               std::byte* memory) {
  ArgumentList arguments(memory);
  const Label* label = labels.data();
  for (const Call::Argument& argument : node.arguments) {
    // Inline, as the compiler would leave a function of its own between the call and each of its arguments.
    arguments.add([&]() __attribute__((always_inline)) { return evaluate(argument.value); });
    if (*label || argument.label) checkLabel(*label, argument);
    ++label;
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
