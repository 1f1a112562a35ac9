// Generated from model.json. Change the model, not this file.
#include "library/OpeningHour.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const OpeningHour& openingHour) {
  std::vector<std::string> found;
  if (!openingHour.branch) found.emplace_back("branch is missing");
  if (openingHour.opensAt < 0 || openingHour.opensAt > 1439) {
    found.emplace_back("opens at must be 0 to 1439");
  }
  if (openingHour.closesAt < 1 || openingHour.closesAt > 1440) {
    found.emplace_back("closes at must be 1 to 1440");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const OpeningHour& openingHour) {
  return output << "opening hour " << openingHour.id.value;
}

}  // namespace library
