// How arrays and dictionaries print: what stands inside them is written by a walk with a small stack of its own.
#include "Velto/Value/Printing.h"

#include <optional>
#include <string_view>
#include <vector>

#include "Velto/Value/Array.h"
#include "Velto/Value/NumberText.h"

namespace velto {

namespace {

template <typename T>
constexpr bool isOfEntries = OneOf<T, Dictionary::Entries, std::span<const HostDictionary::Entry>>;

// The parts of a dictionary are its keys and values in turn.

template <typename T>
std::size_t partCount(const T& contents) {
  return isOfEntries<T> ? contents.size() * 2 : contents.size();
}

template <typename T>
const T& part(std::span<const T> elements, std::size_t index) {
  return elements[index];
}

const Value& part(const Dictionary::Entries& entries, std::size_t index) {
  return index % 2 == 0 ? entries[index / 2].key : entries[index / 2].value;
}

const HostValue& part(std::span<const HostDictionary::Entry> entries, std::size_t index) {
  return index % 2 == 0 ? entries[index / 2].first : entries[index / 2].second;
}

template <typename T>
std::string_view separator(const T&, std::size_t index) {
  if (isOfEntries<T> && index % 2 == 1) return ": ";
  return index > 0 ? ", " : "";
}

/// An array or dictionary that is being written.
struct Level {
  Contents contents;
  Form form;
  std::size_t next = 0;
};

std::optional<Level> levelOf(const Value& value) {
  if (const Array* array = value.array()) return Level{array->elements(), Form::bare};
  if (const Dictionary* dictionary = value.dictionary()) return Level{dictionary->entries(), Form::bare};
  if (const auto* array = dynamic_cast<const HostArray*>(value.object())) return Level{array->elements(), Form::bare};
  if (const auto* dictionary = dynamic_cast<const HostDictionary*>(value.object())) {
    return Level{dictionary->entries(), Form::debug};
  }
  return std::nullopt;
}

std::optional<Level> levelOf(const HostValue& host) {
  if (const HostValue::Elements* elements = host.elements()) return Level{*elements, Form::debug};
  if (const HostValue::Entries* entries = host.entries()) return Level{*entries, Form::debug};
  if (const Value* value = host.as<Value>()) return levelOf(*value);
  if (const auto* object = host.as<Ref<const Object>>()) return levelOf(Value(*object));
  return std::nullopt;
}

void appendLeaf(const Value& value, Form, StringBuilder& text) {
  appendDescription(value, text);
}

void appendLeaf(const HostValue& host, Form form, StringBuilder& text) {
  text.append(form == Form::debug ? host.debugPrinted() : host.printed());
}

class Printer {
 public:
  String print(const Level& outermost) {
    open(outermost);
    while (!levels_.empty()) step();
    return std::move(text_).build();
  }

 private:
  void open(const Level& level) {
    levels_.push_back(level);
    text_.append("[");
  }

  /// Writes one more part of the innermost level, or closes it.
  void step() {
    Level& level = levels_.back();
    std::visit([&](const auto& contents) { stepIn(contents, level.form, level.next++); }, level.contents);
  }

  template <typename T>
  void stepIn(const T& contents, Form form, std::size_t index) {
    if (index == partCount(contents)) return close(isOfEntries<T> && index == 0);
    text_.append(separator(contents, index));
    add(part(contents, index), form);
  }

  template <typename Part>
  void add(const Part& part, Form form) {
    if (const std::optional<Level> level = levelOf(part)) {
      open(*level);
    } else {
      appendLeaf(part, form, text_);
    }
  }

  void close(bool isEmptyDictionary) {
    levels_.pop_back();
    text_.append(isEmptyDictionary ? ":]" : "]");
  }

  std::vector<Level> levels_;
  StringBuilder text_;
};

}  // namespace

String printed(const Contents& contents, Form form) {
  return Printer().print({contents, form});
}

void appendDescription(const Value& value, StringBuilder& text) {
  if (const String* string = value.string()) {
    text.append(*string);
  } else if (const double* number = value.number()) {
    appendNumberDescription(*number, text);
  } else {
    text.append(value.description());
  }
}

String quoted(const String& text) {
  StringBuilder result;
  result.append("\"");
  for (const char& byte : text.view()) {
    switch (byte) {
      case '"':
        result.append("\\\"");
        break;
      case '\\':
        result.append("\\\\");
        break;
      case '\n':
        result.append("\\n");
        break;
      case '\r':
        result.append("\\r");
        break;
      case '\t':
        result.append("\\t");
        break;
      default:
        result.append({&byte, 1});
    }
  }
  return std::move(result.append("\"")).build();
}

String Array::objectDescription() const {
  return velto::printed(elements(), Form::bare);
}

String HostArray::objectDescription() const {
  return velto::printed(elements(), Form::bare);
}

String Dictionary::objectDescription() const {
  return velto::printed(entries(), Form::bare);
}

String HostDictionary::objectDescription() const {
  return velto::printed(entries(), Form::debug);
}

}  // namespace velto
