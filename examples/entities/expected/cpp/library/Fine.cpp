// Generated from model.json. Change the model, not this file.
#include "library/Fine.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Fine& fine) {
  std::vector<std::string> found;
  if (!fine.loan) found.emplace_back("loan is missing");
  if (!fine.raisedOn.ok()) found.emplace_back("raised on is no date");
  if (fine.amount < 1) {
    found.emplace_back("amount must be at least 1");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Fine& fine) {
  return output << "fine " << fine.id.value;
}

}  // namespace library
