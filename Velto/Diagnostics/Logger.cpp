// Who receives diagnostics.
#include "Velto/Diagnostics/Logger.h"

#include <utility>

#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {

void Logger::report(Message::Level level, String message, Range range) {
  report(Message(level, std::move(message), std::move(range)));
}

void ArrayLogger::report(const Message& message) {
  messages.push_back(message);
}

void StdErrLogger::report(const Message& message) {
  printError(message.description());
}

StandardErrorOutputStream& StandardErrorOutputStream::shared() {
  static StandardErrorOutputStream stream;
  return stream;
}

/// What was printed before must be seen before, where standard output and standard error are one place.
void StandardErrorOutputStream::write(const String& string) {
  constexpr int standardError = 2;
  flushPendingOutput();
  writeFully(standardError, string);
}

void printError(const String& string, std::string_view, std::string_view terminator) {
  StandardErrorOutputStream::shared().write(String::concatenation({string, String(terminator)}));
}

}  // namespace velto
