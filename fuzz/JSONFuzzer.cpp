// Any bytes as a JSON document, against a reader that goes letter by letter; and as a number.
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "Velto/Library/JSONLibrary.h"
#include "Velto/Library/JSONNumber.h"
#include "support/JSONReference.h"
#include "support/Require.h"

namespace velto::fuzz {
namespace {

std::string descriptionOf(const std::optional<Value>& value) {
  return value ? describeValue(*value) : "invalid";
}

/// The pool that has the keys of one document gives nothing else to the next.
void checkDocument(const std::string& document) {
  const std::optional<Value> value = parseJSON(document);
  const std::string description = descriptionOf(value);
  requireEqual(description, describeDocument(document).value_or("invalid"), "A document is read as it is written.");
  require(String::isWellFormed(description), "Texts are well-formed.");
  require(!value || Value::verify(*value), "A document becomes a value of the language.");
  TextPool texts;
  requireEqual(description, descriptionOf(parseJSON(document, texts)), "The pool of texts changes nothing.");
  requireEqual(description, descriptionOf(parseJSON(document, texts)), "A pool that knows the keys changes nothing.");
}

void checkNumber(std::string_view text) {
  const std::optional<double> quick = parseJSONNumber(text);
  const std::optional<double> plain = parseAnyJSONNumber(text);
  require(quick == plain && (!quick || std::signbit(*quick) == std::signbit(*plain)),
          "The short way for numbers gives the same.", text);
}

}  // namespace
}  // namespace velto::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  velto::fuzz::checkDocument(text);
  velto::fuzz::checkNumber(text);
  return 0;
}
