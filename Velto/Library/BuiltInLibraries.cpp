// The libraries that every interpreter starts with.
#include "Velto/Library/BuiltInLibraries.h"

#include "Velto/Library/JSONLibrary.h"
#include "Velto/Library/OSLibrary.h"
#include "Velto/Library/VeltoLibrary.h"

namespace velto {

std::vector<std::shared_ptr<Library>> makeBuiltInLibraries() {
  return {std::make_shared<JSONLibrary>(), std::make_shared<VeltoLibrary>(), std::make_shared<OSLibrary>()};
}

}  // namespace velto
