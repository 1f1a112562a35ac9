// `copy` and `mkdir`.
#include "Velto/Library/OSLibrary.h"

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Value/NativeFunctions.h"

namespace velto {
namespace {

bool makeDirectory(const Value& path, FileSystem& fileSystem) {
  const String* const text = path.string();
  return text && fileSystem.createDirectory(Url(*text));
}

}  // namespace

void OSLibrary::load(Interpreter& interpreter) {
  const auto mkdir = [fileSystem = interpreter.fileSystem()](const Value& path) {
    return makeDirectory(path, *fileSystem);
  };
  interpreter.globals().define("copy", makeRef<Copy>());
  interpreter.globals().define("mkdir", makeRef<Function1>("mkdir", mkdir));
}

Value Copy::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  const String* const source = arguments[0].string();
  const String* const destination = arguments[1].string();
  if (!source || !destination) {
    reportError(String::concatenation(
        {"`copy` expects two strings, got '", arguments[0].description(), "', '", arguments[1].description(), "'."}));
  }
  const bool isAbsolute = source->view().starts_with('/');
  const Url from = isAbsolute ? Url(*source) : interpreter.resolve(*source);
  const Url to(*destination);
  FileSystem& fileSystem = *interpreter.fileSystem();
  fileSystem.createDirectory(to.deletingLastPathComponent());
  return fileSystem.copy(from, to);
}

}  // namespace velto
