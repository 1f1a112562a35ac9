// A scope that is pushed for as long as a C++ block runs.
#pragma once

#include "Velto/Interpreter/InterpreterInline.h"

namespace velto {

class ScopeGuard {
 public:
  [[gnu::always_inline]] explicit ScopeGuard(Interpreter& interpreter) : interpreter_(interpreter) {
    interpreter.pushScope();
  }
  /// The scope that has been prepared.
  [[gnu::always_inline]] ScopeGuard(Interpreter& interpreter, std::in_place_t) noexcept : interpreter_(interpreter) {
    interpreter.stack_.pushPrepared();
  }
  [[gnu::always_inline]] ~ScopeGuard() { interpreter_.popScope(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Interpreter& interpreter_;
};

}  // namespace velto
