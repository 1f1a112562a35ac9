// The front half of the pipeline, with what can be promised of its messages.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Scanner/Scanner.h"
#include "support/Bounds.h"

namespace velto::fuzz {

/// What a fuzzer's bytes are as a source: ill-formed sequences are replaced, since no stage ever sees one.
String sourceOf(const std::uint8_t* data, std::size_t size);

struct Scanned {
  std::optional<std::vector<Token>> tokens;  ///< nothing after an error or a stop
  std::optional<Stopped> stopped;
};

/// Scans. After an error there is one message, at a place of the source.
Scanned scan(const String& source, Scanner::Mode mode);

/// Unpacks what was scanned, with the same promise.
std::optional<std::vector<Token>> unpack(std::vector<Token> tokens, const String& source);

/// Messages stand at places of the source, or at 1:1 without a file where there are no tokens.
void checkPlaces(const std::vector<Message>& messages, std::string_view source);

}  // namespace velto::fuzz
