// Programs over the files of this machine, in a folder that goes with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "Velto/Velto.h"
#include "tests/reliability/FolderTest.h"
#include "tests/reliability/Place.h"

namespace velto::test {

/// Fails with the words that it is given, which so come into the messages.
class FailingFunction final : public Callable {
 public:
  String name() const override { return "fail"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter&, Arguments arguments, const ReportError& reportError) const override {
    reportError(arguments[0].description());
  }

 private:
  std::array<Label, 1> labels_;
};

/// The files of this machine, in a folder that goes with the test.
class MachineTest : public FolderTest {
 protected:
  /// What `program` reports, the folder left out. No descriptor stays open, whatever fails.
  std::vector<std::string> messages(const std::string& program) {
    write("main.velto", program);
    const auto logger = std::make_shared<ArrayLogger>();
    Processor processor(Url(folder.string()), logger);
    processor.globals = globals;
    processor.globals["folder"] = folder.string();
    const int openBefore = openDescriptors();
    try {
      processor.process("main.velto");
    } catch (const VeltoError&) {
    }
    EXPECT_LE(openDescriptors(), openBefore + openedByTheTest);
    std::vector<std::string> texts;
    for (const Message& message : logger->messages) {
      if (message.level == Message::Level::error) texts.emplace_back(message.message.view());
    }
    return texts;
  }

  /// The same in a process of its own, whose limits and rights are its own; it ends there with 0 if `isRight`.
  template <typename IsRight>
  void expectInAnotherProcess(const std::string& program, const std::function<void()>& prepare, IsRight isRight) {
    const pid_t child = ::fork();
    if (child == 0) {
      prepare();
      std::quick_exit(isRight(messages(program)) && !HasFailure() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }

  std::map<String, Value> globals;
  int openedByTheTest = 0;  ///< how many descriptors it may open itself while a program runs
};

inline const std::string large = std::string(200'000, 'x');

}  // namespace velto::test
