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

struct Edition;
struct Shelf;

/// One book that a hand can take from a shelf.
struct Copy {
  Id<Copy> id;

  /// What it is a copy of.
  Id<Edition> edition;

  /// Where it belongs.
  Id<Shelf> shelf;

  /// The number on its label.
  std::string barcode;

  /// As of its last return.
  CopyCondition condition = CopyCondition::new_;

  /// The day it was entered.
  std::chrono::year_month_day acquiredOn{};

  /// What a replacement costs.
  std::int64_t price = 0;

  /// The day it was sold or thrown away.
  std::optional<std::chrono::year_month_day> withdrawnOn;

  friend bool operator==(const Copy&, const Copy&) = default;
};

/// What keeps `copy` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Copy& copy);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Copy& copy);

}  // namespace library
