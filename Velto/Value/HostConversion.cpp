// Host values into values, deeply.
#include <variant>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {

namespace {

using Elements = HostValue::Elements;
using Entries = HostValue::Entries;

/// An array or a dictionary of the host's, and what has been made of it so far: of a dictionary, the keys and the
/// values in turn.
struct Level {
  std::variant<const Elements*, const Entries*> source;
  std::vector<Value> parts = {};
};

std::optional<Level> levelOf(const HostValue& host) {
  if (const Elements* elements = host.elements()) return Level{elements};
  if (const Entries* entries = host.entries()) return Level{entries};
  const auto* object = host.as<Ref<const Object>>();
  if (!object) return std::nullopt;
  if (const auto* array = dynamic_cast<const HostArray*>(object->get())) return Level{&array->elements()};
  if (const auto* dictionary = dynamic_cast<const HostDictionary*>(object->get())) return Level{&dictionary->entries()};
  return std::nullopt;
}

// The part that comes next, null behind the last.

const HostValue* nextPart(const Elements& elements, std::size_t index) {
  return index < elements.size() ? &elements[index] : nullptr;
}

const HostValue* nextPart(const Entries& entries, std::size_t index) {
  if (index >= entries.size() * 2) return nullptr;
  return index % 2 == 0 ? &entries[index / 2].first : &entries[index / 2].second;
}

Value finished(const Elements&, std::vector<Value> parts) {
  return Array(std::move(parts));
}

Value finished(const Entries& entries, std::vector<Value> parts) {
  Dictionary result;
  result.reserve(entries.size());
  for (std::size_t index = 0; index < parts.size(); index += 2) {
    result.set(std::move(parts[index]), std::move(parts[index + 1]));
  }
  return result;
}

/// Converts the parts of arrays and dictionaries one by one, with a small stack of its own.
class Conversion {
 public:
  explicit Conversion(Level outermost) { levels_.push_back(std::move(outermost)); }

  std::optional<Value> run() {
    while (true) {
      Level& level = levels_.back();
      if (const HostValue* part =
              std::visit([&](auto* host) { return nextPart(*host, level.parts.size()); }, level.source)) {
        if (!add(*part)) return std::nullopt;
        continue;
      }
      Value value = std::visit([&](auto* host) { return finished(*host, std::move(level.parts)); }, level.source);
      levels_.pop_back();
      if (levels_.empty()) return value;
      levels_.back().parts.push_back(std::move(value));
    }
  }

 private:
  /// False if the part can't be converted.
  bool add(const HostValue& part) {
    if (std::optional<Level> inner = levelOf(part)) {
      levels_.push_back(std::move(*inner));
      return true;
    }
    std::optional<Value> value = part.isAbsent() ? Value::nil() : part.asValue();
    if (value) levels_.back().parts.push_back(std::move(*value));
    return value.has_value();
  }

  std::vector<Level> levels_;
};

}  // namespace

std::optional<Value> Value::from(const HostValue& host) {
  if (host.isAbsent()) return nil();
  if (std::optional<Level> level = levelOf(host)) return Conversion(std::move(*level)).run();
  return host.asValue();
}

}  // namespace velto
