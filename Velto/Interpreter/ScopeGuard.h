// A scope that is pushed for as long as a C++ block runs.
#pragma once

#include "Velto/Interpreter/Interpreter.h"

namespace velto {

class ScopeGuard {
 public:
  explicit ScopeGuard(Interpreter& interpreter, Ref<Environment> environment = nullptr) : interpreter_(interpreter) {
    interpreter.pushEnvironment(std::move(environment));
  }
  ~ScopeGuard() { interpreter_.popEnvironment(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Interpreter& interpreter_;
};

}  // namespace velto
