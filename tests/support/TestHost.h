// A host for tests: files in memory, all output and all messages kept.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Velto/Velto.h"

namespace velto::test {

/// "main.velto:1:2...1:3: error: text", so that one line tells the exact range.
inline std::string exact(const Message& message) {
  const Range& range = message.range();
  return std::string(String::concatenation({range.file, ":", decimal(range.startLine), ":", decimal(range.startColumn),
                                            "...", decimal(range.endLine), ":", decimal(range.endColumn), ": ",
                                            rawValue(message.level), ": ", message.message})
                         .view());
}

class TestHost {
 public:
  const std::shared_ptr<MemoryFileSystem> files = std::make_shared<MemoryFileSystem>();
  const std::shared_ptr<ArrayLogger> logger = std::make_shared<ArrayLogger>();
  Processor processor{Url(""), logger, files};

  /// Runs `program` as "main.velto"; what the call threw, if it did, is in `step`.
  TestHost& run(const std::string& program) {
    files->files["/main.velto"] = program;
    step.reset();
    try {
      processor.process("main.velto");
    } catch (const VeltoError& error) {
      step = error.step;
    }
    return *this;
  }

  std::string output() const {
    const auto written = files->files.find("<1>");
    return written == files->files.end() ? std::string() : written->second;
  }

  std::vector<std::string> messages() const {
    std::vector<std::string> result;
    for (const Message& message : logger->messages) result.push_back(exact(message));
    return result;
  }

  std::optional<VeltoError::Step> step;
};

}  // namespace velto::test
