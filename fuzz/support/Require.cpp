#include "support/Require.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace velto::fuzz {
namespace {

/// Taken before the fuzzer closes standard error, which keeps the words of fatal stops off the terminal.
const int terminal = ::dup(2);

}  // namespace

void tellBroken(std::string_view promise, std::string_view found) {
  std::string text("broken: ");
  text.append(promise).append("\n").append(found).append("\n");
  static_cast<void>(!::write(terminal, text.data(), text.size()));
  std::abort();
}

void requireEqual(std::string_view left, std::string_view right, std::string_view promise) {
  if (left != right) tellBroken(promise, std::string(left).append("\n<-->\n").append(right));
}

}  // namespace velto::fuzz
