// `copy` and `mkdir`.
#pragma once

#include "Velto/Library/Library.h"

namespace [[gnu::visibility("default")]] velto {

class OSLibrary final : public Library {
 public:
  void load(Interpreter& interpreter) override;
};

}  // namespace velto
