// Generated from model.json. Change the model, not this file.
#include "library/Authorship.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Authorship& authorship) {
  std::vector<std::string> found;
  if (!authorship.work) found.emplace_back("work is missing");
  if (!authorship.author) found.emplace_back("author is missing");
  if (authorship.position < 1) {
    found.emplace_back("position must be at least 1");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Authorship& authorship) {
  return output << "authorship " << authorship.id.value;
}

}  // namespace library
