#include "Velto/Library/Process.h"

#include <charconv>
#include <optional>

#include <new>

#include "Velto/Interpreter/IntegerConversion.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/ScopeGuard.h"

namespace velto {

namespace {

using Output = std::shared_ptr<FileHandle>;

/// Sends what the interpreter prints to a handle, until the end of a C++ block.
class Redirection {
 public:
  Redirection(Interpreter& interpreter, Output output)
      : interpreter_(interpreter), other_([output = std::move(output)](const String& text) { output->write(text); }) {
    interpreter_.print.swap(other_);
  }
  ~Redirection() { interpreter_.print.swap(other_); }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

 private:
  Interpreter& interpreter_;
  Interpreter::Print other_;  // the one that doesn't print just now
};

/// The descriptor that a destination names in decimal, with an optional sign.
std::optional<int> descriptorNumber(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

Url targetURL(Interpreter& interpreter, const String& destination) {
  const Value* outputPath = interpreter.globals().values.find("outputPath");
  const String* folder = outputPath ? outputPath->string() : nullptr;
  return folder ? Url(*folder).appendingPathComponent(destination) : Url(destination);
}

/// Null if the destination can't be opened.
Output openDestination(Interpreter& interpreter, const String& destination) {
  FileSystem& files = *interpreter.fileSystem();
  const std::string_view text = destination;
  if (text.empty() || text == "-" || text == "stdout") return files.standardOutput();
  if (text == "stderr") return files.standardError();
  if (const std::optional<int> number = descriptorNumber(text)) return files.descriptor(*number);
  return files.create(targetURL(interpreter, destination));
}

Output openOutput(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) {
  const Value& destination = arguments[1];
  if (arguments[0].string() && destination.number()) {
    return interpreter.fileSystem()->descriptor(integer32(*destination.number()));
  }
  if (!arguments[0].string() || !destination.string()) {
    reportError(String::concatenation(
        {"`process` expects two strings, got '", arguments[0].description(), "', '", destination.description(), "'."}));
  }
  Output output = openDestination(interpreter, *destination.string());
  if (!output) {
    reportError(String::concatenation({"`process` cannot open '", *destination.string(), "' for writing."}));
  }
  return output;
}

ParseCache::FileStatements parseInput(Interpreter& interpreter, const String& input, const ReportError& reportError) {
  try {
    return interpreter.parseCache().getOrParse(interpreter.resolve(input), Scanner::Mode::template_);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    reportError(String::concatenation({"Cannot process '", input, "': ", error.what()}));
  }
}

}  // namespace

Value Process::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  // The destination is opened, and emptied, before the input is read.
  const Redirection redirection(interpreter, openOutput(interpreter, arguments, reportError));
  const ScopeGuard scope(interpreter);
  const ParseCache::FileStatements statements = parseInput(interpreter, *arguments[0].string(), reportError);
  interpreter.interpret(*statements);
  FileSystem::flush();  // while a lack of memory for it can still be told
  return Value::nil();
}

}  // namespace velto
