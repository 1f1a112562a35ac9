// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// A building with its own shelves and opening hours.
struct Branch {
  Id<Branch> id;

  /// What the sign over the door says.
  std::string name;

  /// Street and house number.
  std::string street;

  /// As the post writes it.
  std::string postalCode;

  /// With its country code.
  std::optional<std::string> phone;

  /// The first day of lending.
  std::chrono::year_month_day openedOn{};

  friend bool operator==(const Branch&, const Branch&) = default;
};

/// What keeps `branch` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Branch& branch);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Branch& branch);

}  // namespace library
