// Diagnostics on standard error, in the form that the user chose.
#pragma once

#include <string>
#include <string_view>

#include "SourceExcerpt.h"
#include "Velto/Velto.h"

namespace command {

/// Options of every command.
struct MessageOptions {
  enum class Form { text, json };
  enum class Color { automatic, always, never };

  Form form = Form::text;
  Color color = Color::automatic;
};

/// Prints each message as it comes.
class MessagePrinter final : public velto::Logger {
 public:
  explicit MessagePrinter(MessageOptions options);

  using Logger::report;
  void report(const velto::Message& message) override;

  /// Ends the messages with the step that failed; the text form has no line for that.
  void reportStep(std::string_view step);
  void reportTrouble(std::string_view what);

 private:
  std::string text(const velto::Message& message);

  bool isJson_;
  bool showsSource_;
  bool isColored_;
  SourceExcerpts excerpts_;
};

}  // namespace command
