// The arguments of the process, made ready for CLI11.
#include "Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace command {
namespace {

/// Whether any command has an option `name` with a value.
bool takesValue(const CLI::App& app, const std::string& name) {
  if (!name.starts_with("--")) return false;
  const std::vector<const CLI::App*> commands = app.get_subcommands(nullptr);
  return std::any_of(commands.begin(), commands.end(), [&](const CLI::App* command) {
    const CLI::Option* const option = command->get_option_no_throw(name);
    return option && option->get_items_expected_max() > 0;
  });
}

}  // namespace

std::vector<std::string> preparedArguments(const CLI::App& app, std::span<const char* const> arguments) {
  std::vector<std::string> prepared;
  bool isValue = false;
  bool isFile = false;
  for (const std::string argument : arguments.subspan(1)) {
    const std::string name = argument.substr(0, argument.size() - argument.ends_with('='));
    isFile = isFile || (argument == "--" && !isValue);
    const bool isOption = !isFile && !isValue && takesValue(app, name);
    prepared.push_back(isOption ? name : argument);
    isValue = isOption && name == argument;
    if (isOption && !isValue) prepared.emplace_back();
  }
  return prepared;
}

}  // namespace command
