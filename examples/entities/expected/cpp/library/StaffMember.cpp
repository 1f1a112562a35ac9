// Generated from model.json. Change the model, not this file.
#include "library/StaffMember.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const StaffMember& staffMember) {
  std::vector<std::string> found;
  if (!staffMember.branch) found.emplace_back("branch is missing");
  if (staffMember.familyName.empty()) found.emplace_back("family name is empty");
  if (staffMember.givenName.empty()) found.emplace_back("given name is empty");
  if (staffMember.email.empty()) found.emplace_back("email is empty");
  if (!staffMember.hiredOn.ok()) found.emplace_back("hired on is no date");
  return found;
}

std::ostream& operator<<(std::ostream& output, const StaffMember& staffMember) {
  return output << "staff member " << staffMember.id.value << " (" << staffMember.familyName << ')';
}

}  // namespace library
