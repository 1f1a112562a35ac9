// Generated from model.json. Change the model, not this file.
#include "library/Publisher.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Publisher& publisher) {
  std::vector<std::string> found;
  if (publisher.name.empty()) found.emplace_back("name is empty");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Publisher& publisher) {
  return output << "publisher " << publisher.id.value << " (" << publisher.name << ')';
}

}  // namespace library
