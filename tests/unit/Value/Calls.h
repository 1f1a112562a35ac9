// Calls of native functions without a run, and how values show in the output of a test.
#pragma once

#include <initializer_list>
#include <ostream>
#include <string>

#include "Velto/Value/Callable.h"
#include "Velto/Value/Value.h"

namespace velto {

inline void PrintTo(const String& text, std::ostream* output) {
  *output << '"' << text.view() << '"';
}

inline void PrintTo(const Value& value, std::ostream* output) {
  *output << value.description().view();
}

namespace test {

/// What the calls below throw where a function reports an error.
struct Failure {
  String message;
};

/// An interpreter for functions that only pass it on.
inline Interpreter& untouchedInterpreter() {
  alignas(std::max_align_t) static std::byte storage[1];
  return *static_cast<Interpreter*>(static_cast<void*>(storage));
}

inline Value call(const Callable& function, std::initializer_list<Value> arguments) {
  const auto throwFailure = [](const String& message) { throw Failure{message}; };
  return function.call(untouchedInterpreter(), arguments, throwFailure);
}

inline Value call(const Value& function, std::initializer_list<Value> arguments) {
  return call(*function.callable(), arguments);
}

/// Calls the member `name` of `object`.
inline Value callMember(const Value& object, const String& name, std::initializer_list<Value> arguments) {
  return call(object.get(name).value(), arguments);
}

/// The message with which a call fails.
template <typename Function>
String failureOf(const Function& function, std::initializer_list<Value> arguments) {
  try {
    call(function, arguments);
  } catch (const Failure& failure) {
    return failure.message;
  }
  return "<no failure>";
}

inline String memberFailure(const Value& object, const String& name, std::initializer_list<Value> arguments) {
  return failureOf(object.get(name).value(), arguments);
}

}  // namespace test

}  // namespace velto
