// Generated from model.json. Change the model, not this file.
#include "library/MembershipPlan.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const MembershipPlan& membershipPlan) {
  std::vector<std::string> found;
  if (membershipPlan.name.empty()) found.emplace_back("name is empty");
  if (membershipPlan.yearlyFee < 0) {
    found.emplace_back("yearly fee must be at least 0");
  }
  if (membershipPlan.loanLimit < 1) {
    found.emplace_back("loan limit must be at least 1");
  }
  if (membershipPlan.loanDays < 1) {
    found.emplace_back("loan days must be at least 1");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const MembershipPlan& membershipPlan) {
  return output << "membership plan " << membershipPlan.id.value << " (" << membershipPlan.name << ')';
}

}  // namespace library
