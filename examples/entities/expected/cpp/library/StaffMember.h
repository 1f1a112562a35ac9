// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Enumerations.h"
#include "library/Id.h"

namespace library {

struct Branch;

/// Somebody who works at a branch, paid or not.
struct StaffMember {
  Id<StaffMember> id;

  /// Where they usually work.
  Id<Branch> branch;

  /// Who shows them the ropes.
  std::optional<Id<StaffMember>> mentor;

  /// For letters and lists.
  std::string familyName;

  /// For the badge.
  std::string givenName;

  /// Also the name for signing in.
  std::string email;

  /// What they may do.
  StaffRole role = StaffRole::assistant;

  /// The first day of work.
  std::chrono::year_month_day hiredOn{};

  /// The last one.
  std::optional<std::chrono::year_month_day> leftOn;

  friend bool operator==(const StaffMember&, const StaffMember&) = default;
};

/// What keeps `staffMember` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const StaffMember& staffMember);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const StaffMember& staffMember);

}  // namespace library
