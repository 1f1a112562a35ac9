// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Branch;
struct MembershipPlan;

/// Somebody with a card.
struct Member {
  Id<Member> id;

  /// Where reservations go if nothing else is said.
  Id<Branch> homeBranch;

  /// What the card allows.
  Id<MembershipPlan> plan;

  /// Printed on the card.
  std::string cardNumber;

  /// For letters.
  std::string familyName;

  /// For friendlier letters.
  std::string givenName;

  /// Where reminders go; absent for those who want paper.
  std::optional<std::string> email;

  /// Decides which plans are open.
  std::chrono::year_month_day bornOn{};

  /// The day the card was made out.
  std::chrono::year_month_day joinedOn{};

  /// No loans until fines are paid.
  bool blocked = false;

  friend bool operator==(const Member&, const Member&) = default;
};

/// What keeps `member` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Member& member);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Member& member);

}  // namespace library
