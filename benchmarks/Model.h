// Made-up data of any size: a model of entities and a table, with their words in one of several scripts.
#pragma once

#include <cstddef>
#include <string>

namespace velto::benchmarks {

enum class Script { latin, cyrillic, greek, japanese };

/// The JSON of so many entities with five to fourteen fields each. The same data in every script but for the words.
std::string model(Script script, std::size_t entities);
/// The JSON of a table with so many rows of ten cells.
std::string table(Script script, std::size_t rows);

using MakeData = std::string (*)(Script script, std::size_t count);

}  // namespace velto::benchmarks
