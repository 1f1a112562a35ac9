// Who receives diagnostics.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Velto/Diagnostics/Message.h"

namespace [[gnu::visibility("default")]] velto {

/// Receives every diagnostic of every stage. A logger is shared by the stages of a run and is for one thread.
class Logger {
 public:
  virtual ~Logger() = default;

  virtual void report(const Message& message) = 0;
  void report(Message::Level level, String message, Range range);
};

/// Keeps all messages in the order of reporting.
class ArrayLogger final : public Logger {
 public:
  using Logger::report;
  void report(const Message& message) override;

  std::vector<Message> messages;
};

/// Writes each message and a line feed to standard error.
class StdErrLogger final : public Logger {
 public:
  using Logger::report;
  void report(const Message& message) override;
};

/// Standard error as a stream of text, not buffered.
class StandardErrorOutputStream {
 public:
  static StandardErrorOutputStream& shared();

  void write(const String& string);

 private:
  StandardErrorOutputStream() = default;
};

/// Writes `string` and `terminator` to standard error. There is nothing for `separator` to separate.
[[gnu::visibility("default")]] void printError(const String& string, std::string_view separator = ", ", std::string_view terminator = "\n");

}  // namespace velto
