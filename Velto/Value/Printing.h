// How arrays and dictionaries print.
#pragma once

#include <span>
#include <variant>

#include "Velto/Value/Dictionary.h"
#include "Velto/Value/HostValue.h"
#include "Velto/Value/Value.h"

namespace velto {

/// The contents of an array or of a dictionary, of values or of other host values.
using Contents = std::variant<std::span<const Value>, Dictionary::Entries, std::span<const HostValue>,
                              std::span<const HostDictionary::Entry>>;

/// Text that a host holds prints bare, or in the debug form: in double quotes. That of a value is always bare.
enum class Form { bare, debug };

/// "[1, [2]]", "[a: 1]", "[:]"; arrays and dictionaries inside, at any depth, need no stack.
String printed(const Contents& contents, Form form);

/// Appends `value.description()` without making a text of it where there is none.
void appendDescription(const Value& value, StringBuilder& text);

/// The text in double quotes, with escapes.
String quoted(const String& text);

}  // namespace velto
