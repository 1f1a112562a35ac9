// Generated from model.json. Change the model, not this file.
#include "library/Copy.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Copy& copy) {
  std::vector<std::string> found;
  if (!copy.edition) found.emplace_back("edition is missing");
  if (!copy.shelf) found.emplace_back("shelf is missing");
  if (copy.barcode.empty()) found.emplace_back("barcode is empty");
  if (!copy.acquiredOn.ok()) found.emplace_back("acquired on is no date");
  if (copy.price < 0) {
    found.emplace_back("price must be at least 0");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Copy& copy) {
  return output << "copy " << copy.id.value << " (" << copy.barcode << ')';
}

}  // namespace library
