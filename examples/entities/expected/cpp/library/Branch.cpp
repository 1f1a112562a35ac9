// Generated from model.json. Change the model, not this file.
#include "library/Branch.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Branch& branch) {
  std::vector<std::string> found;
  if (branch.name.empty()) found.emplace_back("name is empty");
  if (branch.street.empty()) found.emplace_back("street is empty");
  if (branch.postalCode.empty()) found.emplace_back("postal code is empty");
  if (!branch.openedOn.ok()) found.emplace_back("opened on is no date");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Branch& branch) {
  return output << "branch " << branch.id.value << " (" << branch.name << ')';
}

}  // namespace library
