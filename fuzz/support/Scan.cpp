#include "support/Scan.h"

#include <algorithm>
#include <memory>
#include <string>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Scanner/Unpacker.h"
#include "support/Require.h"
#include "support/SourceMap.h"

namespace velto::fuzz {
namespace {

/// Runs a stage that stops at its first error.
template <typename Stage>
std::optional<std::vector<Token>> tokensOf(const Stage& stage, const ArrayLogger& logger, std::string_view source) {
  std::optional<std::vector<Token>> tokens;
  try {
    tokens = stage();
  } catch (const VeltoError& error) {
    require(error.step == VeltoError::Step::scan, "An error of the scan has the step `scan`.");
  }
  require(logger.messages.size() == (tokens ? 0u : 1u), "A scan reports the error that ends it, and nothing else.");
  checkPlaces(logger.messages, source);
  return tokens;
}

/// "//" at the very end takes one character more than there are.
void checkStop(const std::optional<Stopped>& stopped, std::string_view source) {
  requireLegal(stopped, {"A cursor can't move beyond the end of its text.", "Failed to interpret a number"});
  if (!stopped) return;
  require(stopped->reason == Stop::Reason::fatal, "No scan of so short a text comes to the limits.");
  const bool isNumber = stopped->fatal.starts_with("Failed");
  require(isNumber || source.ends_with("//"), "Only a comment at the end stops a scan.");
  const auto isASCII = [](char byte) { return static_cast<signed char>(byte) >= 0; };
  require(!isNumber || !std::all_of(source.begin(), source.end(), isASCII), "Digits alone are a number.");
}

}  // namespace

String sourceOf(const std::uint8_t* data, std::size_t size) {
  return std::string_view(reinterpret_cast<const char*>(data), size);
}

Scanned scan(const String& source, Scanner::Mode mode) {
  Scanned result;
  result.stopped = bounded({}, [&] {
    const auto logger = std::make_shared<ArrayLogger>();
    Scanner scanner(source, mode, logger, "source");
    result.tokens = tokensOf([&] { return scanner.scanTokens(); }, *logger, source);
  });
  checkStop(result.stopped, source);
  return result;
}

std::optional<std::vector<Token>> unpack(std::vector<Token> tokens, const String& source) {
  const auto logger = std::make_shared<ArrayLogger>();
  Unpacker unpacker(std::move(tokens), logger);
  return tokensOf([&] { return unpacker.unpack(); }, *logger, source);
}

void checkPlaces(const std::vector<Message>& messages, std::string_view source) {
  if (messages.empty()) return;
  const SourceMap map(source);
  for (const Message& message : messages) {
    const bool isNowhere = message.range() == Range("", 1, 1);
    require(isNowhere || map.offsets(message.range()).has_value(), "A message stands at a place of the source.",
            message.description());
    require(message.level == Message::Level::error, "Only errors are reported before the run.");
  }
}

}  // namespace velto::fuzz
