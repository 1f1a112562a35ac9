// `velto render`: one template, to standard output or into a file.
#include "Commands.h"
#include "Job.h"
#include "Outcome.h"
#include "Stages.h"

namespace command {
namespace {

velto::Interpreter::Print printInto(const std::string& file) {
  const std::shared_ptr<velto::FileHandle> handle = velto::FileSystem::local()->create(velto::Url(file));
  if (!handle) throw Trouble{"cannot open '" + file + "' for writing"};
  return [handle](const velto::String& text) { handle->write(text); };
}

/// In a scope of its own, as the function `process` of the language does it.
void interpret(const velto::Statements& statements, velto::Interpreter& interpreter) {
  interpreter.pushEnvironment();
  interpreter.interpret(statements);
  interpreter.popEnvironment();
  if (interpreter.hadError) throw StageFailure{"interpret"};
}

}  // namespace

int render(const RenderOptions& options) {
  const auto printer = std::make_shared<MessagePrinter>(options.messages);
  return finish(*printer, options.file, [&] {
    const Place place = placeOf(options);
    velto::Interpreter interpreter(place.base, printer);
    for (const auto& [name, value] : prepareGlobals(options)) interpreter.globals().define(name, value);
    const velto::Url url = interpreter.resolve(place.file);
    const auto statements = interpreter.parseCache().getOrParse(url, velto::Scanner::Mode::template_);
    if (options.into) interpreter.print = printInto(*options.into);
    interpret(*statements, interpreter);
  });
}

}  // namespace command
