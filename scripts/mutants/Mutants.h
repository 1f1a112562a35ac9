// What the mutated sources call: each mutation asks whether it is the one that VELTO_MUTANT names. Included into each
// source by the compiler's command line.
#pragma once

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velto::mutants {

struct Choice {
  int number = 0;
  char* reached = nullptr;
  long count = 0;
};

/// The file that VELTO_MUTANTS_REACHED names gets a 1 for each mutation that a run comes by, even if the run is killed.
inline Choice chosen() noexcept {
  Choice choice;
  if (const char* const number = std::getenv("VELTO_MUTANT")) choice.number = std::atoi(number);
  const char* const path = std::getenv("VELTO_MUTANTS_REACHED");
  const int file = path ? open(path, O_RDWR | O_CLOEXEC) : -1;
  if (file < 0) return choice;
  struct stat status {};
  fstat(file, &status);
  void* const bytes = mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (bytes == MAP_FAILED) return choice;
  choice.reached = static_cast<char*>(bytes);
  choice.count = static_cast<long>(status.st_size);
  return choice;
}

inline const Choice choice = chosen();

inline bool isChosen(int number) noexcept {
  if (choice.reached && number < choice.count) choice.reached[number] = 1;
  return choice.number == number;
}

inline bool flipped(int number, bool value) noexcept { return value != isChosen(number); }

/// The binary operators; a use with operands that have none doesn't compile, at the place where it stands.
#define VELTO_MUTANTS_OPERATION(name, sign)                                                \
  struct name {                                                                            \
    template <typename Left, typename Right>                                               \
      requires requires(Left left, Right right) { left sign right; }                       \
    [[gnu::always_inline]] static auto of(Left&& left, Right&& right) {                    \
      return std::forward<Left>(left) sign std::forward<Right>(right);                     \
    }                                                                                      \
  };
VELTO_MUTANTS_OPERATION(Equal, ==)
VELTO_MUTANTS_OPERATION(NotEqual, !=)
VELTO_MUTANTS_OPERATION(Less, <)
VELTO_MUTANTS_OPERATION(LessEqual, <=)
VELTO_MUTANTS_OPERATION(Greater, >)
VELTO_MUTANTS_OPERATION(GreaterEqual, >=)
VELTO_MUTANTS_OPERATION(Plus, +)
VELTO_MUTANTS_OPERATION(Minus, -)
VELTO_MUTANTS_OPERATION(Times, *)
VELTO_MUTANTS_OPERATION(DividedBy, /)
#undef VELTO_MUTANTS_OPERATION

template <typename Usual, typename Other, typename Left, typename Right>
  requires requires(Left&& left, Right&& right) {
    Usual::of(std::forward<Left>(left), std::forward<Right>(right));
    Other::of(std::forward<Left>(left), std::forward<Right>(right));
  }
[[gnu::always_inline]] inline auto operated(int number, Left&& left, Right&& right) {
  if (isChosen(number)) return Other::of(std::forward<Left>(left), std::forward<Right>(right));
  return Usual::of(std::forward<Left>(left), std::forward<Right>(right));
}

/// `left && right`, or `left || right` if chosen.
template <typename Right>
[[gnu::always_inline]] inline bool both(int number, bool left, const Right& right) {
  return left != isChosen(number) ? right() : left;
}

/// `left || right`, or `left && right` if chosen.
template <typename Right>
[[gnu::always_inline]] inline bool either(int number, bool left, const Right& right) {
  return left != isChosen(number) ? left : right();
}

}  // namespace velto::mutants
