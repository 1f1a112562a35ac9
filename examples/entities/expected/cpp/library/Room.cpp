// Generated from model.json. Change the model, not this file.
#include "library/Room.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Room& room) {
  std::vector<std::string> found;
  if (!room.branch) found.emplace_back("branch is missing");
  if (room.name.empty()) found.emplace_back("name is empty");
  if (room.seats < 0) {
    found.emplace_back("seats must be at least 0");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Room& room) {
  return output << "room " << room.id.value << " (" << room.name << ')';
}

}  // namespace library
