// Pieces of JSON: no blanks, and everything but what JSON must escape as it is.
#pragma once

#include <string>
#include <string_view>

#include "Velto/Velto.h"

namespace command::json {

std::string quoted(std::string_view text);
/// The shortest text that reads back to the same float; an infinite one is written "1e999".
std::string number(double number);
/// [startLine, startColumn, endLine, endColumn]
std::string range(const velto::Range& range);
std::string token(const velto::Token& token);

}  // namespace command::json
