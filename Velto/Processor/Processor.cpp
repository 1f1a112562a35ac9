#include "Velto/Processor/Processor.h"

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/Resolver.h"
#include "Velto/Processor/ParseFile.h"

namespace velto {

Processor::Processor(const Url& baseURL, std::shared_ptr<Logger> logger, std::shared_ptr<FileSystem> fileSystem)
    : logger(std::move(logger)), baseURL_(Url::directory(baseURL.path())), fileSystem_(std::move(fileSystem)) {
}

void Processor::process(const String& file) {
  if (!logger) logger = std::make_shared<ArrayLogger>();
  // Loggers and libraries are the host's, and may change the fields while the call goes on with what it found.
  const Processor found = *this;
  const auto texts = std::make_shared<TextPool>();
  const Statements statements = found.parse(file, texts);
  Interpreter interpreter(baseURL_, found.logger, fileSystem_, texts);
  Resolver(interpreter).resolve(statements);
  found.installGlobals(interpreter);
  for (const std::shared_ptr<Library>& library : found.libraries) {
    if (library) interpreter.load(library);
  }
  interpreter.interpret(statements);
  if (interpreter.hadError) throw VeltoError(VeltoError::Step::interpret);
}

Statements Processor::parse(const String& file, const std::shared_ptr<TextPool>& texts) const {
  const Url url = baseURL_.appendingPathComponent(file);
  std::optional<Statements> statements = parseFile(*fileSystem_, url, Scanner::Mode::program, logger, texts);
  if (!statements) throw VeltoError(VeltoError::Step::parse);
  return *std::move(statements);
}

void Processor::installGlobals(Interpreter& interpreter) const {
  for (const auto& [name, value] : globals) {
    if (Value::verify(value)) {
      interpreter.globals().define(name, value);
      continue;
    }
    logger->report(Message::Level::error,
                   String::concatenation({"Global variable '", name, "' was assigned an invalid value."}),
                   Range("", 0, 0));
    interpreter.hadError = true;
  }
}

}  // namespace velto
