// `print`, `execute`, `process` and `makeUUID`.
#pragma once

#include "Velto/Library/Library.h"

namespace [[gnu::visibility("default")]] velto {

class VeltoLibrary final : public Library {
 public:
  void load(Interpreter& interpreter) override;
};

}  // namespace velto
