// Generated from model.json. Change the model, not this file.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// What a card costs and what it allows.
struct MembershipPlan {
  Id<MembershipPlan> id;

  /// As on the price list.
  std::string name;

  /// Nothing for children.
  std::int64_t yearlyFee = 0;

  /// How many copies may be out at once.
  int loanLimit = 20;

  /// How long a copy may stay out.
  int loanDays = 28;

  friend bool operator==(const MembershipPlan&, const MembershipPlan&) = default;
};

/// What keeps `membershipPlan` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const MembershipPlan& membershipPlan);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const MembershipPlan& membershipPlan);

}  // namespace library
