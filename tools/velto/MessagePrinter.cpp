// Diagnostics on standard error.
#include "MessagePrinter.h"

#include <unistd.h>

#include <cstdlib>

#include "Json.h"

namespace command {
namespace {

using Level = velto::Message::Level;

constexpr std::string_view reset = "\x1B[0m";

bool isTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

bool isColorWelcome() {
  const char* const refusal = std::getenv("NO_COLOR");
  return isTerminal() && (!refusal || !*refusal);
}

std::string_view colorOf(Level level) {
  switch (level) {
    case Level::error:
      return "\x1B[1;31m";
    case Level::warning:
      return "\x1B[1;35m";
    case Level::info:
      return "\x1B[1;36m";
  }
  return reset;
}

std::string jsonOf(const velto::Message& message) {
  return "{\"file\":" + json::quoted(message.range().file) + ",\"range\":" + json::range(message.range()) +
         ",\"level\":" + json::quoted(rawValue(message.level)) + ",\"message\":" + json::quoted(message.message) + "}";
}

}  // namespace

MessagePrinter::MessagePrinter(MessageOptions options)
    : isJson_(options.form == MessageOptions::Form::json),
      showsSource_(options.color == MessageOptions::Color::always || isTerminal()),
      isColored_(options.color == MessageOptions::Color::always ||
                 (options.color == MessageOptions::Color::automatic && isColorWelcome())) {
}

void MessagePrinter::report(const velto::Message& message) {
  velto::printError(isJson_ ? jsonOf(message) : text(message));
}

void MessagePrinter::reportStep(std::string_view step) {
  if (isJson_) velto::printError("{\"step\":" + json::quoted(step) + "}");
}

void MessagePrinter::reportTrouble(std::string_view what) {
  velto::printError(isJson_ ? "{\"error\":" + json::quoted(what) + "}" : "velto: " + std::string(what));
}

std::string MessagePrinter::text(const velto::Message& message) {
  std::string line(message.description());
  if (!showsSource_) return line;
  const std::string_view color = isColored_ ? colorOf(message.level) : "";
  const std::string_view end = isColored_ ? reset : "";
  std::string result = std::string(color) + line + std::string(end);
  if (const auto excerpt = excerpts_.excerpt(message.range())) {
    result += "\n" + excerpt->line + "\n" + std::string(color) + excerpt->marker + std::string(end);
  }
  return result;
}

}  // namespace command
