// The command line of `velto`: each command with its options.
#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Commands.h"

namespace command {
namespace {

using velto::Scanner;

template <typename T>
using Choices = std::vector<std::pair<std::string, T>>;

/// An option with a few words as its values, each of which stands for a `T`.
template <typename T>
void addChoice(CLI::App& command, const char* name, T& target, const Choices<T>& choices, const char* description) {
  std::vector<std::string> words;
  for (const auto& [word, value] : choices) words.push_back(word);
  const auto choose = [&target, choices](const std::string& chosen) {
    for (const auto& [word, value] : choices) {
      if (word == chosen) target = value;
    }
  };
  command.add_option_function<std::string>(name, choose, description)
      ->check(CLI::IsMember(words).description(""))
      ->type_name(CLI::detail::join(words, "|"));
}

void addMessageOptions(CLI::App& command, MessageOptions& options) {
  using Form = MessageOptions::Form;
  using Color = MessageOptions::Color;
  addChoice<Form>(command, "--messages", options.form, {{"text", Form::text}, {"json", Form::json}},
                  "The form of messages (default: text)");
  addChoice<Color>(
      command, "--color", options.color,
      {{"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}},
      "Colour in messages (default: auto, if standard error is a terminal and NO_COLOR is unset or empty)");
}

void addMode(CLI::App& command, Scanner::Mode& mode) {
  const bool isTemplate = mode == Scanner::Mode::template_;
  addChoice<Scanner::Mode>(
      command, "--mode", mode, {{"template", Scanner::Mode::template_}, {"program", Scanner::Mode::program}},
      isTemplate ? "What the file is (default: template)" : "What the files are (default: program)");
}

/// An option that may be absent, which is not the same as empty.
void addText(CLI::App& command, const char* name, const char* form, std::optional<std::string>& target,
             const char* description) {
  const auto set = [&target](const std::string& text) { target = text; };
  command.add_option_function<std::string>(name, set, description)->type_name(form);
}

/// An option that may be repeated, handed on in the order of the command line.
template <typename Add>
void addGlobalOption(CLI::App& command, const std::string& name, const char* form, const char* description, Add add) {
  const auto parse = [name, add](const std::string& argument) {
    try {
      add(argument);
    } catch (const std::invalid_argument& error) {
      throw CLI::ValidationError(name, error.what());
    }
  };
  command.add_option_function<std::string>(name, parse, description)->type_name(form)->trigger_on_parse();
}

void addGlobalOptions(CLI::App& command, GlobalOptions& globals) {
  addGlobalOption(command, "--set", "NAME=TEXT", "Defines a global string",
                  [&](const std::string& argument) { globals.addText(argument); });
  addGlobalOption(command, "--set-json", "NAME=JSON", "Defines a global from a JSON text",
                  [&](const std::string& argument) { globals.addJson(argument); });
}

void addRunOptions(CLI::App& command, RunOptions& options) {
  addText(command, "--base", "DIR", options.base, "The base directory, which FILE is then relative to");
  addText(command, "--output", "DIR", options.output, "The folder of the output files, made if it is missing");
  addGlobalOptions(command, options.globals);
}

/// Adds a command that hands its options to `perform`.
template <typename Options>
std::pair<CLI::App&, Options&> addCommand(CLI::App& app, Work& work, const char* name, const char* description,
                                          int (*perform)(const Options&)) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = *app.add_subcommand(name, description);
  command.callback([=, &work] { work = [=] { return perform(*options); }; });
  addMessageOptions(command, options->messages);
  return {command, *options};
}

void addRun(CLI::App& app, Work& work) {
  const auto [command, options] = addCommand(app, work, "run", "Runs a program", run);
  addRunOptions(command, options);
  addGlobalOption(command, "--data", "NAME=FILE", "Defines a global from a JSON file",
                  [&globals = options.globals](const std::string& argument) { globals.addData(argument); });
  command.add_option("FILE", options.file, "The program")->required()->type_name("");
}

void addRender(CLI::App& app, Work& work) {
  const auto [command, options] = addCommand(app, work, "render", "Renders a template", render);
  addRunOptions(command, options);
  addGlobalOption(command, "--data", "[NAME=]FILE",
                  "Defines a global from a JSON file, or each key of the object in the file",
                  [&globals = options.globals](const std::string& argument) { globals.addDataOrKeys(argument); });
  addText(command, "--into", "FILE", options.into, "The file to write instead of standard output");
  command.add_option("TEMPLATE", options.file, "The template")->required()->type_name("");
}

/// What is left of the arguments once the options are taken out. Up to "--", names with a hyphen are unknown options.
std::vector<std::string> filesAmong(const std::vector<std::string>& arguments) {
  const auto mark = std::find(arguments.begin(), arguments.end(), "--");
  const auto isOption = [](const std::string& argument) { return argument.size() > 1 && argument.starts_with('-'); };
  const auto unknown = std::find_if(arguments.begin(), mark, isOption);
  if (unknown != mark) throw CLI::ExtrasError({*unknown});
  std::vector<std::string> files(arguments.begin(), mark);
  if (mark != arguments.end()) files.insert(files.end(), mark + 1, arguments.end());
  return files;
}

/// An option of CLI11 with many values would take the name "[a,b]" for two. So the one that stands here takes none: it
/// is for the help, and says that something is missing until it has refused a first name.
void addFiles(CLI::App& command, std::vector<std::string>& files) {
  constexpr int anyNumber = -1;
  CLI::Option& option = *command.add_option("FILE", "The files");
  const auto refuse = [&option](const std::string&) {
    option.required(false);
    return std::string("left over");
  };
  option.required()->expected(1, anyNumber)->type_name("")->check(refuse, "");
  command.validate_positionals()->allow_extras();
  command.parse_complete_callback([&] { files = filesAmong(command.remaining()); });
}

void addCheck(CLI::App& app, Work& work) {
  const auto [command, options] = addCommand(app, work, "check", "Looks for errors without running anything", check);
  addMode(command, options.mode);
  addFiles(command, options.files);
}

void addTokens(CLI::App& app, Work& work) {
  const auto [command, options] = addCommand(app, work, "tokens", "Prints the tokens of a file as JSON", tokens);
  addMode(command, options.mode);
  command.add_flag("--unpack", options.unpack, "Without tags and the white space that they skip");
  command.add_option("FILE", options.file, "The file")->required()->type_name("");
}

void addTree(CLI::App& app, Work& work) {
  const auto [command, options] = addCommand(app, work, "tree", "Prints the syntax tree of a file as JSON", tree);
  addMode(command, options.mode);
  command.add_option("FILE", options.file, "The file")->required()->type_name("");
}

}  // namespace

void addCommands(CLI::App& app, Work& work) {
  app.require_subcommand(1);
  addRun(app, work);
  addRender(app, work);
  addCheck(app, work);
  addTokens(app, work);
  addTree(app, work);
}

}  // namespace command
