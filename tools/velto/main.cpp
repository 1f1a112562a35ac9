// `velto`: the library as a command.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <new>
#include <span>
#include <string>
#include <string_view>

#include "Arguments.h"
#include "CommandLine.h"
#include "Outcome.h"
#include "Velto/Velto.h"

namespace {

using Arguments = std::span<const char* const>;

bool areWellFormed(Arguments arguments) {
  return std::all_of(arguments.begin(), arguments.end(),
                     [](const char* argument) { return velto::String::isWellFormed(argument); });
}

/// The first argument where a command should be, and none is; empty if there is nothing to complain of.
std::string_view wordInsteadOfCommand(const CLI::App& app, Arguments arguments) {
  const std::string_view word = arguments.size() > 1 ? arguments[1] : "";
  const auto commands = app.get_subcommands(nullptr);
  const auto isNamed = [&](const CLI::App* command) { return command->get_name() == word; };
  return word.starts_with('-') || std::any_of(std::begin(commands), std::end(commands), isNamed) ? std::string_view()
                                                                                                 : word;
}

int refuse(const CLI::App& app, std::string_view reason) {
  std::cerr << "velto: " << reason << "\n\n" << app.help();
  return command::wrongCommandLine;
}

int runCommand(Arguments arguments) {
  CLI::App app("Generates text files from data and templates.", "velto");
  command::Work work;
  command::addCommands(app, work);
  app.set_version_flag("--version", VeltoVersionString);
  if (!areWellFormed(arguments)) return refuse(app, "an argument isn't valid UTF-8");
  if (const std::string_view word = wordInsteadOfCommand(app, arguments); !word.empty()) {
    return refuse(app, "there is no command '" + std::string(word) + "'");
  }
  try {
    std::vector<std::string> prepared = command::preparedArguments(app, arguments);
    std::reverse(prepared.begin(), prepared.end());
    app.parse(prepared);
  } catch (const CLI::Success& wish) {
    return app.exit(wish);
  } catch (const CLI::ParseError& error) {
    return refuse(app, error.what());
  }
  return work();
}

}  // namespace

int main(int count, char** arguments) try {
  return runCommand({arguments, static_cast<std::size_t>(count)});
} catch (const std::bad_alloc&) {
  std::cerr << "velto: out of memory\n";
  return command::unreadable;
} catch (const std::exception& error) {
  std::cerr << "velto: " << error.what() << '\n';
  return command::unreadable;
}
