// Generated from model.json. Change the model, not this file.
#include "library/Member.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Member& member) {
  std::vector<std::string> found;
  if (!member.homeBranch) found.emplace_back("home branch is missing");
  if (!member.plan) found.emplace_back("plan is missing");
  if (member.cardNumber.empty()) found.emplace_back("card number is empty");
  if (member.familyName.empty()) found.emplace_back("family name is empty");
  if (member.givenName.empty()) found.emplace_back("given name is empty");
  if (!member.bornOn.ok()) found.emplace_back("born on is no date");
  if (!member.joinedOn.ok()) found.emplace_back("joined on is no date");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Member& member) {
  return output << "member " << member.id.value << " (" << member.cardNumber << ')';
}

}  // namespace library
