// Generated from model.json. Change the model, not this file.
#include "library/Edition.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Edition& edition) {
  std::vector<std::string> found;
  if (!edition.work) found.emplace_back("work is missing");
  if (!edition.publisher) found.emplace_back("publisher is missing");
  if (edition.title.empty()) found.emplace_back("title is empty");
  if (edition.pages && *edition.pages < 1) {
    found.emplace_back("pages must be at least 1");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Edition& edition) {
  return output << "edition " << edition.id.value << " (" << edition.title << ')';
}

}  // namespace library
