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
struct Edition;
struct Member;

/// A member's place in the queue for an edition.
struct Reservation {
  Id<Reservation> id;

  /// What is waited for.
  Id<Edition> edition;

  /// Who waits.
  Id<Member> member;

  /// Where it will be fetched.
  Id<Branch> pickupBranch;

  /// Decides the order of the queue.
  std::chrono::sys_seconds placedAt{};

  /// How far it has come.
  ReservationState state = ReservationState::waiting;

  /// Once it is ready for pickup.
  std::optional<std::chrono::year_month_day> heldUntil;

  friend bool operator==(const Reservation&, const Reservation&) = default;
};

/// What keeps `reservation` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Reservation& reservation);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Reservation& reservation);

}  // namespace library
