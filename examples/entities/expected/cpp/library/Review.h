// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Member;
struct Work;

/// What a member thinks of a work.
struct Review {
  Id<Review> id;

  /// What was read.
  Id<Work> work;

  /// Who read it.
  Id<Member> member;

  /// More is better.
  int stars = 0;

  /// In the member's words.
  std::optional<std::string> opinion;

  /// Of the latest change.
  std::chrono::sys_seconds writtenAt{};

  friend bool operator==(const Review&, const Review&) = default;
};

/// What keeps `review` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Review& review);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Review& review);

}  // namespace library
