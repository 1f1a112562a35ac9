// Generated from model.json. Change the model, not this file.
#include "library/Classification.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Classification& classification) {
  std::vector<std::string> found;
  if (!classification.work) found.emplace_back("work is missing");
  if (!classification.subject) found.emplace_back("subject is missing");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Classification& classification) {
  return output << "classification " << classification.id.value;
}

}  // namespace library
