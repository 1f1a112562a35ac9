// The member table of arrays.
#include "Velto/Library/ArrayMembers.h"

#include <algorithm>

#include "Velto/Library/EqualsMember.h"
#include "Velto/Library/Sorting.h"
#include "Velto/Value/NativeFunctions.h"
#include "Velto/Value/Printing.h"

namespace velto {

namespace {

Value containsMember(const String& name, Ref<const Sequence> array) {
  return makeRef<Function1>(name, [array = std::move(array)](const Value& wanted) {
    for (std::size_t index = 0; index < array->size(); ++index) {
      const Value* element = array->valueAt(index);
      if (element && *element == wanted) return Value(true);
    }
    return Value(false);
  });
}

const Callable& functionOf(const Value& argument, std::string_view complaint, const ReportError& reportError) {
  if (!argument.callable()) reportError(String::concatenation({complaint, argument.description(), "'."}));
  return *argument.callable();
}

/// What sorting says of a wrong answer, too: its word is `filter`.
bool truthOf(const Value& answer, const ReportError& reportError) {
  if (!answer.boolean()) {
    reportError(String::concatenation({"`filter` should return a boolean, returned '", answer.description(), "'."}));
  }
  return *answer.boolean();
}

/// All elements that can be converted.
std::vector<Value> convertedElements(const Sequence& array) {
  std::vector<Value> result;
  result.reserve(array.size());
  for (std::size_t index = 0; index < array.size(); ++index) {
    if (std::optional<Value> element = array.converted(index)) result.push_back(std::move(*element));
  }
  return result;
}

/// What the texts among the elements take, the separators included; few others need much.
std::size_t expectedSize(std::span<const Value> elements, std::string_view separator) {
  std::size_t size = elements.size() * separator.size();
  for (const Value& element : elements) {
    if (const String* text = element.string()) size += text->size();
  }
  return size;
}

String joined(std::span<const Value> elements, std::string_view separator) {
  StringBuilder text;
  text.reserve(expectedSize(elements, separator));
  for (const Value& element : elements) {
    if (&element != elements.data()) text.append(separator);
    appendDescription(element, text);
  }
  return std::move(text).build();
}

}  // namespace

String joinedOneByOne(const Sequence& array, std::string_view separator) {
  StringBuilder text;
  for (std::size_t index = 0; index < array.size(); ++index) {
    if (index > 0) text.append(separator);
    text.append(array.printed(index));
  }
  return std::move(text).build();
}

std::optional<Value> Sequence::get(const String& name) const {
  const std::string_view member = name;
  const auto array = [this] { return Ref<const Sequence>(this); };
  if (member == "contains") return containsMember(name, array());
  if (member == "count") return Value(size());
  if (member == "equals") return equalsMember(name);
  if (member == "filter") return makeRef<Filter>(array());
  if (member == "isEmpty") return Value(size() == 0);
  if (member == "joined") return makeRef<Join>(array());
  if (member == "map") return makeRef<Map>(array());
  if (member == "sorted") return makeRef<Sort>(array());
  return std::nullopt;
}

/// What holds nothing inside is remembered as such, so that the array isn't looked through again.
bool ArrayFunction::mayHoldFunctions() const noexcept {
  const auto* const values = dynamic_cast<const Array*>(array.get());
  if (!values) return true;
  if (values->contents.get() != ContentsMark::Kind::unknown) return values->contents.get() != ContentsMark::Kind::plain;
  const auto isPlain = [](const Value& element) { return !element.isHolder() || element.string(); };
  if (!std::all_of(values->elements().begin(), values->elements().end(), isPlain)) return true;
  values->contents.set(ContentsMark::Kind::plain);
  return false;
}

Value Map::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  const Callable& function = functionOf(arguments[0], "`map` expects a function, got '", reportError);
  std::vector<Value> results;
  results.reserve(array->size());
  for (std::size_t index = 0; index < array->size(); ++index) {
    const std::optional<Value> element = array->converted(index);
    if (!element) {
      reportError(String::concatenation({"`map` found invalid value '", array->printed(index), "'."}));
    }
    results.push_back(function.call(interpreter, {*element}, reportError));
  }
  return Array(std::move(results));
}

Value Filter::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  const Callable& function = functionOf(arguments[0], "`filter` expects a function, got '", reportError);
  std::vector<Value> kept;
  for (Value& element : convertedElements(*array)) {
    if (truthOf(function.call(interpreter, {element}, reportError), reportError)) kept.push_back(std::move(element));
  }
  return Array(std::move(kept));
}

Value Join::call(Interpreter&, Arguments arguments, const ReportError& reportError) const {
  const String* separator = arguments[0].string();
  if (!separator) {
    reportError(String::concatenation({"`join` expects a string separator, got '", arguments[0].description(), "'."}));
  }
  const auto* values = dynamic_cast<const Array*>(array.get());
  return values ? joined(values->elements(), *separator) : joinedOneByOne(*array, *separator);
}

Value Sort::call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const {
  const Callable& function = functionOf(arguments[0], "`sort` expects a function, got '", reportError);
  std::vector<Value> elements = convertedElements(*array);
  sorting::sort(elements, [&](const Value& left, const Value& right) {
    return truthOf(function.call(interpreter, {left, right}, reportError), reportError);
  });
  return Array(std::move(elements));
}

}  // namespace velto
