// Generated from model.json. Change the model, not this file.
#include "library/Reservation.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Reservation& reservation) {
  std::vector<std::string> found;
  if (!reservation.edition) found.emplace_back("edition is missing");
  if (!reservation.member) found.emplace_back("member is missing");
  if (!reservation.pickupBranch) found.emplace_back("pickup branch is missing");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Reservation& reservation) {
  return output << "reservation " << reservation.id.value;
}

}  // namespace library
