#include "Velto/Library/VeltoLibrary.h"

#include <new>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Library/Process.h"
#include "Velto/Platform/Uuid.h"

namespace velto {

namespace {

/// Writes the description of a value, and nothing besides.
class Print final : public Callable {
 public:
  String name() const override { return "print"; }
  std::span<const Label> labels() const noexcept override { return labels_; }

  Value call(Interpreter& interpreter, Arguments arguments, const ReportError&) const override {
    interpreter.print(arguments[0].description());
    return Value::nil();
  }

 private:
  std::array<Label, 1> labels_;
};

/// Runs a file of program code as if it stood at the call, in the current scope.
class Execute final : public Callable {
 public:
  String name() const override { return "execute"; }
  std::span<const Label> labels() const noexcept override { return labels_; }

  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override {
    const String* path = arguments[0].string();
    if (!path) {
      reportError(String::concatenation({"`execute` expects a string, got '", arguments[0].description(), "'."}));
    }
    const ParseCache::FileStatements statements = parse(interpreter, *path, reportError);
    interpreter.interpret(*statements);
    return Value::nil();
  }

 private:
  static ParseCache::FileStatements parse(Interpreter& interpreter, const String& path,
                                          const ReportError& reportError) {
    try {
      return interpreter.parseCache().getOrParse(interpreter.resolve(path), Scanner::Mode::program);
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& error) {
      reportError(String::concatenation({"Cannot execute '", path, "': ", error.what()}));
    }
  }

  std::array<Label, 1> labels_;
};

class MakeUUID final : public Callable {
 public:
  String name() const override { return "makeUUID"; }
  std::span<const Label> labels() const noexcept override { return {}; }

  Value call(Interpreter&, Arguments, const ReportError&) const override { return Uuid().description(); }
};

}  // namespace

void VeltoLibrary::load(Interpreter& interpreter) {
  interpreter.globals().define("print", makeRef<Print>());
  interpreter.globals().define("execute", makeRef<Execute>());
  interpreter.globals().define("process", makeRef<Process>());
  interpreter.globals().define("makeUUID", makeRef<MakeUUID>());
}

}  // namespace velto
