// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Copy;
struct Member;
struct StaffMember;

/// A copy in the hands of a member.
struct Loan {
  Id<Loan> id;

  /// What was lent.
  Id<Copy> copy;

  /// Who has it.
  Id<Member> member;

  /// Absent for the lending machine.
  std::optional<Id<StaffMember>> lentBy;

  /// When it went over the desk.
  std::chrono::sys_seconds lentAt{};

  /// The last day without a fine.
  std::chrono::year_month_day dueOn{};

  /// How often the due day was moved.
  int renewals = 0;

  /// Absent while it is out.
  std::optional<std::chrono::sys_seconds> returnedAt;

  friend bool operator==(const Loan&, const Loan&) = default;
};

/// What keeps `loan` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Loan& loan);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Loan& loan);

}  // namespace library
