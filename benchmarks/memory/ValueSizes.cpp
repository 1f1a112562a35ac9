// Where the bytes of values go, by kind.
#include "benchmarks/memory/Heap.h"
#include "benchmarks/memory/Sizes.h"

namespace velto::benchmarks {
namespace {

void add(std::map<std::string, Size>& sizes, const Value& value) {
  const auto addBytes = [&](const char* kind, std::size_t count, std::size_t bytes) {
    Size& size = sizes[kind];
    size.count += count;
    size.bytes += bytes;
  };
  if (const Array* const array = value.array()) {
    addBytes("arrays", 1, bytesTaken(sizeof(Array)));
    const std::size_t capacity = array->elements().capacity();
    if (capacity > 0) addBytes("elements of arrays", array->size(), bytesTaken(capacity * sizeof(Value)));
    for (const Value& element : array->elements()) add(sizes, element);
  } else if (const Dictionary* const dictionary = value.dictionary()) {
    addBytes("dictionaries", 1, bytesTaken(sizeof(Dictionary)));
    const std::size_t size = dictionary->size();
    if (size > 0) addBytes("values of dictionaries", size, bytesTaken(size * sizeof(Value)));
    for (const Dictionary::Entry& entry : dictionary->entries()) add(sizes, entry.value);
  } else if (value.string()) {
    addBytes("uses of texts", 1, 0);
  }
}

}  // namespace

std::map<std::string, Size> sizesOf(const Value& value) {
  std::map<std::string, Size> sizes;
  add(sizes, value);
  return sizes;
}

}  // namespace velto::benchmarks
