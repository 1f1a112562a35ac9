// Generated from model.json. Change the model, not this file.
#include "library/Event.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Event& event) {
  std::vector<std::string> found;
  if (!event.room) found.emplace_back("room is missing");
  if (!event.host) found.emplace_back("host is missing");
  if (event.title.empty()) found.emplace_back("title is empty");
  if (event.admission < 0) {
    found.emplace_back("admission must be at least 0");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Event& event) {
  return output << "event " << event.id.value << " (" << event.title << ')';
}

}  // namespace library
