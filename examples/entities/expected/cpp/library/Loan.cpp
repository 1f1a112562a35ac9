// Generated from model.json. Change the model, not this file.
#include "library/Loan.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Loan& loan) {
  std::vector<std::string> found;
  if (!loan.copy) found.emplace_back("copy is missing");
  if (!loan.member) found.emplace_back("member is missing");
  if (!loan.dueOn.ok()) found.emplace_back("due on is no date");
  if (loan.renewals < 0 || loan.renewals > 3) {
    found.emplace_back("renewals must be 0 to 3");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Loan& loan) {
  return output << "loan " << loan.id.value;
}

}  // namespace library
