// A scope that is pushed for as long as a C++ block runs.
#pragma once

#include "Velto/Interpreter/InterpreterInline.h"

namespace velto {

class ScopeGuard {
 public:
  [[gnu::always_inline]] explicit ScopeGuard(Interpreter& interpreter)
      : ScopeGuard(interpreter, interpreter.current()) {}
  [[gnu::always_inline]] ScopeGuard(Interpreter& interpreter, Environment& enclosing) : interpreter_(interpreter) {
    interpreter.stack_.push(&enclosing);
  }
  [[gnu::always_inline]] ~ScopeGuard() { interpreter_.popScope(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Interpreter& interpreter_;
};

}  // namespace velto
