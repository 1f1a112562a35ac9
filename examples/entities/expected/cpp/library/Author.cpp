// Generated from model.json. Change the model, not this file.
#include "library/Author.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Author& author) {
  std::vector<std::string> found;
  if (author.familyName.empty()) found.emplace_back("family name is empty");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Author& author) {
  return output << "author " << author.id.value << " (" << author.familyName << ')';
}

}  // namespace library
