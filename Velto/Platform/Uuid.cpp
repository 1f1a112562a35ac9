// Random identities.
#include "Velto/Platform/Uuid.h"

#include <pthread.h>

#include <cinttypes>
#include <cstdio>
#include <span>

#include "Velto/Platform/Random.h"
#include "Velto/Platform/Wrapping.h"

namespace velto {

namespace {

/// Two sequences that start at random places, so that neither repeats itself and no other process follows both. Each
/// node of a tree draws an identity, so the system is asked for a seed and not for every one of them.
struct Sequences {
  std::array<std::uint64_t, 2> states{};
  bool areSeeded = false;
};

thread_local constinit Sequences sequencesOfThread;

void seed(Sequences& sequences) {
  // A forked child must not repeat what its parent draws. It has one thread, the one that this runs on.
  [[maybe_unused]] static const int registered =
      ::pthread_atfork(nullptr, nullptr, [] { sequencesOfThread.areSeeded = false; });
  fillRandom(std::as_writable_bytes(std::span(sequences.states)));
  sequences.areSeeded = true;
}

/// The next of SplitMix64: steps by the golden ratio, scrambled so that each bit depends on all bits of the state.
VELTO_WRAPS std::uint64_t next(std::uint64_t& state) noexcept {
  state += 0x9E37'79B9'7F4A'7C15;
  std::uint64_t bits = state;
  bits = (bits ^ bits >> 30) * 0xBF58'476D'1CE4'E5B9;
  bits = (bits ^ bits >> 27) * 0x94D0'49BB'1331'11EB;
  return bits ^ bits >> 31;
}

}  // namespace

Uuid::Uuid() {
  constexpr std::uint64_t versionBits = 0xF000;
  constexpr std::uint64_t variantBits = std::uint64_t{3} << 62;
  Sequences& sequences = sequencesOfThread;
  if (!sequences.areSeeded) seed(sequences);
  halves_[0] = (next(sequences.states[0]) & ~versionBits) | 0x4000;
  halves_[1] = (next(sequences.states[1]) & ~variantBits) | std::uint64_t{2} << 62;
}

String Uuid::description() const {
  const auto [high, low] = halves_;
  std::array<char, 37> text;
  // NOLINTNEXTLINE(cert-err33-c): there is room for whatever the numbers are
  std::snprintf(text.data(), text.size(), "%08" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%012" PRIX64,
                high >> 32, (high >> 16) & 0xFFFF, high & 0xFFFF, low >> 48, low & 0xFFFF'FFFF'FFFF);
  return String::fromWellFormed(text.data());
}

}  // namespace velto
