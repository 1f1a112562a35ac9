// The command line of `velto`.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace command {

/// What the command line asks for; gives the exit status of the process.
using Work = std::function<int()>;

/// Adds all commands to `app`; the one that is chosen sets `work` while `app` parses.
void addCommands(CLI::App& app, Work& work);

}  // namespace command
