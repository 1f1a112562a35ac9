// JSON documents read letter by letter, to compare with.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Velto/Value/Value.h"

namespace velto::fuzz {

/// What a document (RFC 8259) says, one line for each value; nothing if it is invalid. Slow, and for flat ones only.
std::optional<std::string> describeDocument(std::string_view document);

/// The same of a value that a document has become.
std::string describeValue(const Value& value);

}  // namespace velto::fuzz
