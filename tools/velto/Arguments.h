// The arguments of the process, made ready for CLI11.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace command {

/// The arguments without the name of the program. "--name=" becomes "--name" and an empty argument: CLI11 would take
/// the argument behind it for the value.
std::vector<std::string> preparedArguments(const CLI::App& app, std::span<const char* const> arguments);

}  // namespace command
