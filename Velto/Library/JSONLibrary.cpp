// `loadJSON`.
#include "Velto/Library/JSONLibrary.h"

#include <exception>
#include <new>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/NativeFunctions.h"

namespace velto {
namespace {

Url baseOf(const Interpreter& interpreter) {
  FileSystem& fileSystem = *interpreter.fileSystem();
  if (!interpreter.baseURL()) return Url::directory(fileSystem.currentDirectory().path());
  const Url& base = *interpreter.baseURL();
  return !base.isDirectory() && fileSystem.isDirectory(base) ? Url::directory(base.path()) : base;
}

/// `nil` whatever goes wrong; the top level must be an array or an object.
Value loadJSON(const Value& path, const Url& base, FileSystem& fileSystem, TextPool& texts) try {
  const String* const text = path.string();
  if (!text) return nullptr;
  const std::optional<Url> url = Url::resolving(*text, base, fileSystem.currentDirectory());
  if (!url) return nullptr;
  const std::optional<Value> document = parseJSON(fileSystem.readBytes(*url), texts);
  return document && (document->array() || document->dictionary()) ? *document : nullptr;
} catch (const std::bad_alloc&) {
  throw;
} catch (const std::exception&) {  // a file system of a host's may throw what it likes
  return nullptr;
}

}  // namespace

void JSONLibrary::load(Interpreter& interpreter) {
  *baseURL_ = baseOf(interpreter);
  const auto function = [base = baseURL_, fileSystem = interpreter.fileSystem(),
                         texts = interpreter.parseCache().texts()](const Value& path) {
    return loadJSON(path, **base, *fileSystem, *texts);
  };
  interpreter.globals().define("loadJSON", makeRef<Function1>("loadJSON", function));
}

}  // namespace velto
