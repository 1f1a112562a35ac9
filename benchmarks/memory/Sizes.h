// Where the bytes of trees and values go, by kind.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "Velto/Velto.h"

namespace velto::benchmarks {

struct Size {
  std::size_t count = 0;
  std::size_t bytes = 0;
};

/// The nodes as they are kept, and lists of statements; the texts of the source and the names are what is left.
std::map<std::string, Size> sizesOf(const Statements& statements);
/// The containers with their elements; texts are what is left.
std::map<std::string, Size> sizesOf(const Value& value);
/// The bytes of template text.
std::size_t textSizeOf(const Statements& statements);

}  // namespace velto::benchmarks
