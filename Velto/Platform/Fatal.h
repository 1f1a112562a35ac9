// The one way in which the process is stopped on purpose.
#pragma once

#include <string_view>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// Called with the text of a fatal stop after it has been written, before the process is aborted. A hook that doesn't
/// return (a fuzzer's jump, a test's exit) replaces the abort.
using FatalHook = void (*)(std::string_view what);

/// Installs `hook` for the whole process, none if null, and returns the one before.
[[gnu::visibility("default")]] FatalHook setFatalHook(FatalHook hook) noexcept;

/// For a violated precondition: writes all pending output, then "fatal: ", `what` and a line feed to standard error,
/// calls the hook and aborts.
[[noreturn, gnu::visibility("default")]] void fatalError(std::string_view what);

}  // namespace velto
