// Programs that run, twice, with what holds of every run.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velto::fuzz {

/// Names and contents; the first one is the program.
using Files = std::vector<std::pair<std::string, std::string>>;

/// Runs the program through an interpreter, through a processor, and with nodes that are the host's. All leave the same
/// files, the same messages and the same end behind them, and the interpreter is as it was, even where a run is stopped
/// halfway. What stops a run is one of the known stops.
/// Gives how the first run ended: "done", "failed", "not run", "not read", or "stopped: " and the words of the stop.
std::string checkRun(const Files& files);

/// For messages.
std::string textOf(const Files& files);

}  // namespace velto::fuzz
