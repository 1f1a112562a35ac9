// The elements of arrays that the host holds.
#include "Velto/Value/Array.h"

namespace velto {

const Value* HostArray::valueAt(std::size_t index) const noexcept {
  return elements_[index].as<Value>();
}

std::optional<Value> HostArray::converted(std::size_t index) const {
  return Value::from(elements_[index]);
}

String HostArray::printed(std::size_t index) const {
  return elements_[index].printed();
}

}  // namespace velto
