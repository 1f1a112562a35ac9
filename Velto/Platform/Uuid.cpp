// Random identities.
#include "Velto/Platform/Uuid.h"

#include <pthread.h>

#include <cinttypes>
#include <cstdio>
#include <random>
#include <span>

#include "Velto/Platform/Random.h"

namespace velto {

namespace {

using Engine = std::mt19937_64;

Engine seededEngine() {
  std::array<std::uint32_t, 8> seeds;
  fillRandom(std::as_writable_bytes(std::span(seeds)));
  std::seed_seq sequence(seeds.begin(), seeds.end());
  return Engine(sequence);
}

/// Each node of a tree draws an identity, so the system is asked for a seed and not for every one of them.
Engine& engineOfThisThread() {
  thread_local Engine engine = seededEngine();
  // A forked child must not repeat what its parent draws. It has one thread, the one that this runs on.
  [[maybe_unused]] static const int registered =
      ::pthread_atfork(nullptr, nullptr, [] { engineOfThisThread() = seededEngine(); });
  return engine;
}

}  // namespace

Uuid::Uuid() {
  constexpr std::uint64_t versionBits = 0xF000;
  constexpr std::uint64_t variantBits = std::uint64_t{3} << 62;
  Engine& engine = engineOfThisThread();
  halves_[0] = (engine() & ~versionBits) | 0x4000;
  halves_[1] = (engine() & ~variantBits) | std::uint64_t{2} << 62;
}

String Uuid::description() const {
  const auto [high, low] = halves_;
  std::array<char, 37> text;
  std::snprintf(text.data(), text.size(), "%08" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%012" PRIX64,
                high >> 32, (high >> 16) & 0xFFFF, high & 0xFFFF, low >> 48, low & 0xFFFF'FFFF'FFFF);
  return String::fromWellFormed(text.data());
}

}  // namespace velto
