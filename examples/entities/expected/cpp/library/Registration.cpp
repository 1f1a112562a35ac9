// Generated from model.json. Change the model, not this file.
#include "library/Registration.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Registration& registration) {
  std::vector<std::string> found;
  if (!registration.event) found.emplace_back("event is missing");
  if (!registration.member) found.emplace_back("member is missing");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Registration& registration) {
  return output << "registration " << registration.id.value;
}

}  // namespace library
