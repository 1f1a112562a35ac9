// The bounds within which a fuzzer lets the library work, and what it makes of a fatal stop.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>

namespace velto::fuzz {

/// Leaves the library on the way that it keeps open for a lack of memory: undone is whatever has to be, and nothing is
/// reported.
class Stop final : public std::bad_alloc {
 public:
  enum class Reason { fatal, steps, memory };

  explicit Stop(Reason reason) noexcept : reason(reason) {}
  const char* what() const noexcept override { return "Stop"; }

  Reason reason;
};

struct Limits {
  long steps = 1'000'000;                          ///< questions about the stack
  std::size_t largest = std::size_t{64} << 20;     ///< in bytes, of one piece of memory
  std::size_t memory = std::size_t{1} << 30;       ///< in bytes, of all pieces together, those given back included
  long pieces = std::numeric_limits<long>::max();  ///< of memory; one more is refused, however small
};

/// What ended an action before its time.
struct Stopped {
  Stop::Reason reason;
  std::string fatal;  ///< the text of the fatal stop
};

/// How many steps the action has taken that ran last.
long stepsTaken() noexcept;
/// How many pieces of memory it has asked for.
long piecesTaken() noexcept;

/// Runs `action`. A fatal stop ends it, as do the limits. Errors of the library pass.
std::optional<Stopped> bounded(const Limits& limits, const std::function<void()>& action);

/// A fatal stop must be one of the legal ones, each told by the start of its text.
void requireLegal(const std::optional<Stopped>& stopped, std::initializer_list<std::string_view> legal);

}  // namespace velto::fuzz
