// Named native functions for an interpreter.
#pragma once

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

class Library {
 public:
  virtual ~Library() = default;

  /// Defines the functions in `interpreter.globals()`. Called by `Interpreter::load`.
  virtual void load(Interpreter& interpreter) = 0;
};

}  // namespace velto
