#include "Velto/Library/VeltoLibrary.h"

#include <new>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Library/Process.h"
#include "Velto/Platform/Uuid.h"

namespace velto {

namespace {

ParseCache::FileStatements parse(Interpreter& interpreter, const String& path, const ReportError& reportError) {
  try {
    return interpreter.parseCache().getOrParse(interpreter.resolve(path), Scanner::Mode::program);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    reportError(String::concatenation({"Cannot execute '", path, "': ", error.what()}));
  }
}

}  // namespace

void VeltoLibrary::load(Interpreter& interpreter) {
  interpreter.globals().define("print", makeRef<Print>());
  interpreter.globals().define("execute", makeRef<Execute>());
  interpreter.globals().define("process", makeRef<Process>());
  interpreter.globals().define("makeUUID", makeRef<MakeUUID>());
}

Value Print::call(Interpreter& interpreter, Arguments arguments, const ReportError&) const {
  interpreter.print(arguments[0].description());
  return Value::nil();
}

Value Execute::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  const String* path = arguments[0].string();
  if (!path) {
    reportError(String::concatenation({"`execute` expects a string, got '", arguments[0].description(), "'."}));
  }
  const ParseCache::FileStatements statements = parse(interpreter, *path, reportError);
  interpreter.interpret(*statements);
  return Value::nil();
}

Value MakeUUID::call(Interpreter&, Arguments, const ReportError&) const {
  return Uuid().description();
}

}  // namespace velto
