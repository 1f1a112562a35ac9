// The libraries that every interpreter starts with.
#pragma once

#include <memory>
#include <vector>

#include "Velto/Library/Library.h"

namespace velto {

/// In the order in which they are loaded.
std::vector<std::shared_ptr<Library>> makeBuiltInLibraries();

}  // namespace velto
