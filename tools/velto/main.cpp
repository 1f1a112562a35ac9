// `velto`: the library as a command.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <span>
#include <string_view>

#include "CommandLine.h"
#include "Outcome.h"
#include "Velto/Velto.h"

namespace {

bool areWellFormed(std::span<const char* const> arguments) {
  return std::ranges::all_of(arguments, [](const char* argument) { return velto::String::isWellFormed(argument); });
}

int refuse(const CLI::App& app, std::string_view reason) {
  std::cerr << "velto: " << reason << "\n\n" << app.help();
  return command::wrongCommandLine;
}

}  // namespace

int main(int count, char** arguments) {
  CLI::App app("Generates text files from data and templates.", "velto");
  command::Work work;
  command::addCommands(app, work);
  app.set_version_flag("--version", VeltoVersionString);
  if (!areWellFormed({arguments, static_cast<std::size_t>(count)})) return refuse(app, "an argument isn't valid UTF-8");
  try {
    app.parse(count, arguments);
  } catch (const CLI::Success& wish) {
    return app.exit(wish);
  } catch (const CLI::ParseError& error) {
    return refuse(app, error.what());
  }
  return work();
}
