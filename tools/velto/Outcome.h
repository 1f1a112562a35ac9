// How a command ends.
#pragma once

#include <string>
#include <string_view>

namespace command {

enum ExitStatus : int { done = 0, failed = 1, wrongCommandLine = 2, unreadable = 3 };

/// Thrown when a stage has failed and the logger has got the words.
struct StageFailure {
  std::string_view step;
};

/// Thrown for what lies outside the language, such as a file that can't be read.
struct Trouble {
  std::string what;
};

/// "cannot read 'FILE': REASON"
inline Trouble cannotRead(std::string_view file, std::string_view reason) {
  return {"cannot read '" + std::string(file) + "': " + std::string(reason)};
}

}  // namespace command
