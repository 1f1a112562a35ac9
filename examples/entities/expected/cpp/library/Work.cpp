// Generated from model.json. Change the model, not this file.
#include "library/Work.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Work& work) {
  std::vector<std::string> found;
  if (work.title.empty()) found.emplace_back("title is empty");
  if (work.language.empty()) found.emplace_back("language is empty");
  if (work.volume && *work.volume < 1) {
    found.emplace_back("volume must be at least 1");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Work& work) {
  return output << "work " << work.id.value << " (" << work.title << ')';
}

}  // namespace library
