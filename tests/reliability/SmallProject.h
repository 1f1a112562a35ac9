// A small project that goes through nearly everything that a run can do.
#pragma once

#include <map>
#include <string>

#include "Velto/Velto.h"
#include "tests/reliability/Files.h"

namespace velto::test {

/// Two programs with what they need: `main.velto` succeeds, `faulty.velto` goes through what is reported, and fails.
/// Both write below the global `outputPath`.
const Files& smallProject();

/// What `main.velto` writes.
const Files& expectedFiles();
/// What `main.velto` prints.
const std::string& expectedOutput();

/// The globals of both programs but for `outputPath`.
std::map<String, Value> smallProjectGlobals();

}  // namespace velto::test
