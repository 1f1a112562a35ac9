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

namespace {

[[gnu::always_inline]] inline const NodeOf<FunctionDeclaration>& nodeOf(const Function& function) noexcept {
  return function.statement().node<FunctionDeclaration>();
}

}  // namespace

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
[[gnu::always_inline]] inline Value Interpreter::executeBody(const StatementList& body) {
  for (const Statement& statement : body) {
    if (statement.kind() == StatementKinds::of<Return>) return valueOf(statement.node<Return>());
    if (statement.kind() == StatementKinds::of<If>) {
      if (const StatementList* branch = chooseBranch(statement.node<If>())) {
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
bool Interpreter::returnsFrom(const StatementList& branch, ReturnedValue& result) {
  const ScopeGuard scope(*this);
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(branch);
  for (const Statement& statement : branch) {
    if (statement.kind() == StatementKinds::of<Return>) {
      result.make([&]() __attribute__((always_inline)) { return valueOf(statement.node<Return>()); });
      return true;
    }
    if (statement.kind() == StatementKinds::of<If>) {
      const StatementList* const inner = chooseBranch(statement.node<If>());
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
  const std::span<const NodeOf<FunctionDeclaration>::Parameter> parameters = nodeOf(function).parameters();
  const auto nameAt = [&](std::size_t index) -> const String& { return parameters[index].name; };
  if (current().values.addAllAgain(arguments.values(), function.parameterBits(), nameAt)) return;
  bindOthers(nodeOf(function), arguments);
}

/// A name that is there already is refused by `define`, which tells so.
void Interpreter::bindOthers(const NodeOf<FunctionDeclaration>& declaration, Arguments arguments) {
  Environment& scope = current();
  const std::size_t end = std::min<std::size_t>(declaration.count, arguments.size());
  for (std::size_t index = scope.values.size(); index < end; ++index) {
    if (scope.values.add(declaration.parameters()[index].name, arguments[index])) continue;
    scope.define(recordOf(declaration).parameters[index].name, arguments[index]);
  }
}

/// For what isn't a call of a function by its name: callbacks of native functions, members, and hosts.
Value Interpreter::call(const Function& function, Arguments arguments) {
  if (depth_ == 0 && !isCalled_) [[unlikely]]
    return callAtFirst(function, arguments);
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(nodeOf(function).body);
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
  return executeBody(nodeOf(function).body);
}

Value Interpreter::callValue(const NodeOf<Call>& node) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node);
  // Held, since the variable may get another value meanwhile.
  const Callable* const found = findCallable(node.callee);
  const Ref<const Callable> callee = found ? Ref<const Callable>(found) : evaluateCallee(node);
  return callee->isDeclared() ? call(node, static_cast<const Function&>(*callee)) : callOther(node, *callee);
}

/// Null for what isn't found at once.
[[gnu::always_inline]] inline const Callable* Interpreter::findCallable(const Expression& callee) noexcept {
  if (callee.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const Value* const value = findAtOnce(callee.node<Variable>());
  return value ? value->callable() : nullptr;
}

Ref<const Callable> Interpreter::evaluateCallee(const NodeOf<Call>& node) {
  const Value callee = evaluate(node.callee);
  return Ref<const Callable>(&callableOf(node, callee));
}

/// The form of texts that a call of a member asks for; null where it asks for anything else.
inline StringForm formOf(const NodeOf<Call>& node, const NodeOf<Member>& member) noexcept {
  return node.count == 0 ? stringForm(member.member) : nullptr;
}

/// A form of a text comes without the function that the member is, and the text needn't be taken from where it stands.
Value Interpreter::callMember(const NodeOf<Call>& node, const NodeOf<Member>& member) {
  const StringForm form = formOf(node, member);
  const String* const text = form ? findText(member.object) : nullptr;
  return text ? recentForms_->formOf(*text, form) : callAnyMember(node, member);
}

Value Interpreter::callAnyMember(const NodeOf<Call>& node, const NodeOf<Member>& member) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(node);
  Value callee = evaluate(member.object);
  const StringForm form = callee.string() ? formOf(node, member) : nullptr;
  if (form) return recentForms_->formOf(*callee.string(), form);
  callee = memberOf(callee, member);
  return callOther(node, callableOf(node, callee));
}

/// Any callable, and apart, so that calls of the program's own functions by their names stay lean.
Value Interpreter::callOther(const NodeOf<Call>& node, const Callable& callee) {
  return call(node, callee);
}

inline const Callable& Interpreter::callableOf(const NodeOf<Call>& node, const Value& callee) {
  const Callable* const callable = callee.callable();
  if (!callable) fail(node, &Call::paren, "Can only call functions and classes.");
  return *callable;
}

template <typename Callee>
inline Value Interpreter::call(const NodeOf<Call>& node, const Callee& callee) {
  const std::span<const Label> labels = callee.labels();
  if (labels.size() != node.count) [[unlikely]]
    failArgumentCount(node, callee);
  if (labels.size() > ArgumentList::few) [[unlikely]]
    return callWithMany(node, callee, labels);
  alignas(Value) std::byte memory[ArgumentList::few * sizeof(Value)];
  return call(node, callee, labels, memory);
}

template <typename Callee>
Value Interpreter::callWithMany(const NodeOf<Call>& node, const Callee& callee, std::span<const Label> labels) {
  const std::unique_ptr<std::byte[]> memory(new std::byte[labels.size() * sizeof(Value)]);
  return call(node, callee, labels, memory.get());
}

template <typename Callee>
inline Value Interpreter::call(const NodeOf<Call>& node, const Callee& callee, std::span<const Label> labels,
                               std::byte* memory) {
  ArgumentList arguments(memory);
  const CallArgument* argument = node.arguments().data();
  for (const Label& label : labels) {
    // Inline, as the compiler would leave a function of its own between the call and each of its arguments.
    arguments.add([&]() __attribute__((always_inline)) { return evaluate(argument->value); });
    if (label || argument->hasLabel) checkLabel(node, *argument, label);
    ++argument;
  }
  try {
    return callWith(node, callee, arguments.values());
  } catch (const VeltoError&) {
    tellOfCall(node, callee, arguments.values());
    throw;
  }
}

/// One line for each call on the way out, innermost first: the language's stack trace.
void Interpreter::tellOfCall(const NodeOf<Call>& node, const Callable& callee, std::span<const Value> arguments) {
  logger_->report(Message::Level::info, String::concatenation({callee.describe(arguments), " called here"}),
                  rangeOf(node));
}

inline Value Interpreter::callWith(const NodeOf<Call>&, const Function& function, Arguments arguments) {
  return run(function, arguments);
}

inline Value Interpreter::callWith(const NodeOf<Call>& node, const Callable& callee, Arguments arguments) {
  return callee.call(*this, arguments, [&](const String& message) { fail(node, &Call::paren, message); });
}

void Interpreter::failArgumentCount(const NodeOf<Call>& node, const Callable& callee) {
  fail(node, &Call::paren,
       String::concatenation(
           {"Expected ", decimal(callee.arity()), " arguments but got ", decimal(static_cast<Int>(node.count)), "."}));
}

void Interpreter::checkLabel(const NodeOf<Call>& node, const CallArgument& argument, const Label& expected) {
  const bool isMatch = argument.hasLabel ? expected == argument.label : !expected;
  if (isMatch) return;
  const auto index = static_cast<std::size_t>(&argument - node.arguments().data());
  fail(argument.hasLabel ? recordOf(node).arguments[index].label->range : argument.value.range(),
       String::concatenation({"Expected argument label '", expected.value_or(String()), "'."}));
}

void Interpreter::execute(const NodeOf<FunctionDeclaration>& node) {
  survivors_.expect(stack_.size());  // each of these scopes may be held by a function of its own
  declare(node, makeRef<Function>(Ref<const Node>(&node), stack_.top()));
}

}  // namespace velto
