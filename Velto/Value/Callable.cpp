// What every callable does.
#include "Velto/Value/Callable.h"

#include <algorithm>

#include "Velto/Platform/Fatal.h"

namespace velto {

void Arguments::missing(std::size_t index) {
  fatalError(
      String::concatenation({"Argument ", decimal(static_cast<Int>(index)), " of a native function is missing"}));
}

void ReportError::operator()(const String& message) const {
  invoke_(function_, message);
  fatalError("A function that reports an error must not return");
}

String Callable::describe(std::span<const Value> arguments) const {
  const std::span<const Label> labels = this->labels();
  StringBuilder text;
  text.append(name()).append("(");
  for (std::size_t index = 0; index < std::min(labels.size(), arguments.size()); ++index) {
    if (index > 0) text.append(", ");
    if (labels[index]) text.append(*labels[index]).append(": ");
    text.append(arguments[index].description());
  }
  return text.append(")").build();
}

Value Callable::asValue() const {
  if (holderCount() == 0) fatalError("A callable that becomes a value must be made by makeRef.");
  return Ref<const Callable>(this);
}

}  // namespace velto
