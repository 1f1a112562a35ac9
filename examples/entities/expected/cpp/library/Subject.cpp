// Generated from model.json. Change the model, not this file.
#include "library/Subject.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Subject& subject) {
  std::vector<std::string> found;
  if (subject.code.empty()) found.emplace_back("code is empty");
  if (subject.heading.empty()) found.emplace_back("heading is empty");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Subject& subject) {
  return output << "subject " << subject.id.value << " (" << subject.heading << ')';
}

}  // namespace library
