// The escapes of an `escaped` section, in both directions.
#pragma once

#include <string>
#include <string_view>

namespace harness {

/// Resolves `\n`, `\r`, `\t`, `\0`, `\\`, `\-`, `\u{301}` and `\xFF`. A backslash at the end of a line takes the line
/// feed away. Throws `std::runtime_error` at any other escape.
std::string unescape(std::string_view text);

/// Writes `text` so that `unescape` gives it back: line feeds stay line ends, and a text that doesn't end in one gets a
/// backslash at its end.
std::string escape(std::string_view text);

/// Whether `text` can stand in a plain section: printable, and without a line that looks like the head of a section.
bool isPlain(std::string_view text);

}  // namespace harness
