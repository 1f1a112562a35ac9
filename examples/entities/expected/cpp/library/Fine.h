// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Enumerations.h"
#include "library/Id.h"

namespace library {

struct Loan;

/// Money that a member owes for a loan.
struct Fine {
  Id<Fine> id;

  /// The loan that went wrong.
  Id<Loan> loan;

  /// What is owed.
  std::int64_t amount = 0;

  /// Why.
  FineReason reason{};

  /// The day of the bill.
  std::chrono::year_month_day raisedOn{};

  /// Absent while it is owed.
  std::optional<std::chrono::year_month_day> paidOn;

  friend bool operator==(const Fine&, const Fine&) = default;
};

/// What keeps `fine` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Fine& fine);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Fine& fine);

}  // namespace library
