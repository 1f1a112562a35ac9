// Generated from model.json. Change the model, not this file.
#include "library/Shelf.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Shelf& shelf) {
  std::vector<std::string> found;
  if (!shelf.room) found.emplace_back("room is missing");
  if (shelf.label.empty()) found.emplace_back("label is empty");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Shelf& shelf) {
  return output << "shelf " << shelf.id.value << " (" << shelf.label << ')';
}

}  // namespace library
