// The names of C++ types as people write them.
#pragma once

#include <string_view>
#include <typeinfo>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// The name of a type with its template arguments, all without namespaces and enclosing classes: "String",
/// "Pair<Point>".
[[gnu::visibility("default")]] String printedTypeName(const std::type_info& type);

/// The same without the arguments: "Pair".
[[gnu::visibility("default")]] String unqualifiedTypeName(const std::type_info& type);

}  // namespace velto
