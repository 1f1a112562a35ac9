// What leaves the doors of the library when something of the host's throws.
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Velto/Velto.h"
#include "tests/support/BareFileSystem.h"
#include "tests/support/TestHost.h"

namespace velto::test {
namespace {

struct HostError : std::runtime_error {
  HostError() : std::runtime_error("of the host") {}
};

const auto isAbort = testing::KilledBySignal(SIGABRT);

/// Throws at every message.
template <typename Exception>
class ThrowingLogger final : public Logger {
 public:
  using Logger::report;
  void report(const Message&) override { throw Exception(); }
};

/// Throws when it is loaded.
template <typename Exception>
class ThrowingLibrary final : public Library {
 public:
  void load(Interpreter&) override { throw Exception(); }
};

/// A file system of which even the first file can't be read.
template <typename Exception>
class UnreadableFiles final : public BareFileSystem {
 protected:
  std::string doRead(const Url&) override { throw Exception(); }
};

template <typename Exception>
Value throwing() {
  return makeRef<Function0>("throwing", []() -> Value { throw Exception(); });
}

/// Runs a program that is handed to a processor with these parts.
void run(const std::string& program, const std::shared_ptr<Logger>& logger, const Value& function = nullptr,
         const std::shared_ptr<Library>& library = nullptr) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = program;
  Processor processor(Url("/"), logger, files);
  processor.globals["throwing"] = function;
  if (library) processor.libraries.push_back(library);
  processor.process("main.velto");
}

std::shared_ptr<Logger> quiet() {
  return std::make_shared<ArrayLogger>();
}

TEST(Exceptions, OfTheMainFileLeaveAsTheyAre) {
  Processor missing(Url("/"), quiet(), std::make_shared<BareFileSystem>());
  EXPECT_THROW(missing.process("main.velto"), FileError);
  Processor foreign(Url("/"), quiet(), std::make_shared<UnreadableFiles<HostError>>());
  EXPECT_THROW(foreign.process("main.velto"), HostError);
}

TEST(Exceptions, OfEachStageAreVeltoErrors) {
  const auto stepOf = [](const std::string& program) {
    try {
      run(program, quiet());
    } catch (const VeltoError& error) {
      return error.step;
    }
    throw std::logic_error("It went through.");
  };
  EXPECT_EQ(stepOf("%"), VeltoError::Step::scan);
  EXPECT_EQ(stepOf("var"), VeltoError::Step::parse);
  EXPECT_EQ(stepOf("missing"), VeltoError::Step::interpret);
}

TEST(Exceptions, OfMemoryLeaveFromAnywhere) {
  const auto poor = std::make_shared<ThrowingLogger<std::bad_alloc>>();
  for (const char* program : {"%", "var", "var a = 1 var a = 2", "missing", "break"}) {
    EXPECT_THROW(run(program, poor), std::bad_alloc) << program;
  }
  EXPECT_THROW(run("throwing()", quiet(), throwing<std::bad_alloc>()), std::bad_alloc);
  EXPECT_THROW(run("[1, 2].map(throwing)", quiet(), throwing<std::bad_alloc>()), std::bad_alloc);
  EXPECT_THROW(run("1", quiet(), nullptr, std::make_shared<ThrowingLibrary<std::bad_alloc>>()), std::bad_alloc);
}

TEST(Exceptions, OfALibraryThatIsLoadedLeaveAsTheyAre) {
  EXPECT_THROW(run("1", quiet(), nullptr, std::make_shared<ThrowingLibrary<HostError>>()), HostError);
}

TEST(Exceptions, OfALoggerThatAScannerHasLeaveAsTheyAre) {
  EXPECT_THROW(run("%", std::make_shared<ThrowingLogger<HostError>>()), HostError);
}

/// Throws at the first message only, and keeps the others.
class OnceThrowingLogger final : public Logger {
 public:
  using Logger::report;
  void report(const Message& message) override {
    messages.push_back(exact(message));
    if (messages.size() == 1) throw HostError();
  }

  std::vector<std::string> messages;
};

TEST(Exceptions, OfALoggerAreErrorsOfTheFileThatIsScanned) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"include \"faulty\"", "main.velto:1:1...1:17: error: Cannot include 'faulty': of the host."},
      {"execute(\"faulty\")", "main.velto:1:8...1:9: error: Cannot execute 'faulty': of the host"},
      {"process(\"faulty\", into: \"out\")", "main.velto:1:8...1:9: error: Cannot process 'faulty': of the host"}};
  for (const auto& [program, expected] : rows) {
    const auto files = std::make_shared<MemoryFileSystem>();
    files->files = {{"/main.velto", program}, {"/faulty", "<% % %>"}};
    const auto logger = std::make_shared<OnceThrowingLogger>();
    EXPECT_THROW(Processor(Url(""), logger, files).process("main.velto"), VeltoError);
    ASSERT_GE(logger->messages.size(), 2u);
    EXPECT_EQ(logger->messages[1], expected);
  }
}

TEST(ExceptionsDeathTest, OfALoggerStopTheProcessFromTheParserOn) {
  const auto logger = std::make_shared<ThrowingLogger<HostError>>();
  EXPECT_EXIT(run("var", logger), isAbort, "^fatal: Unknown error 'of the host'\\.\n$");
  EXPECT_EXIT(run("var a = 1 var a = 2", logger), isAbort, "^fatal: Unknown exception of the host\n$");
  EXPECT_EXIT(run("missing", logger), isAbort, "^fatal: Unknown exception of the host\n$");
}

TEST(Exceptions, OfALoggerThatIsToldOfAGlobalLeaveAsTheyAre) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = "";
  Processor processor(Url(""), std::make_shared<ThrowingLogger<HostError>>(), files);
  processor.globals["bad"] = *HostValue(std::vector<std::string>{"a"}).asValue();
  EXPECT_THROW(processor.process("main.velto"), HostError);
}

TEST(ExceptionsDeathTest, OfPrintStopTheProcess) {
  Interpreter interpreter(std::nullopt, quiet());
  interpreter.print = [](const String&) { throw HostError(); };
  const Statements text = {Verbatim{.range = Range("a", 1, 1), .text = "text"}};
  EXPECT_EXIT(interpreter.interpret(text), isAbort, "^fatal: Unknown exception of the host\n$");
}

TEST(ExceptionsDeathTest, OfANativeFunctionStopTheProcess) {
  EXPECT_EXIT(run("throwing()", quiet(), throwing<HostError>()), isAbort, "^fatal: Unknown exception of the host\n$");
}

TEST(Exceptions, OfANativeFunctionMayBeAVeltoError) {
  struct Failing final : Callable {
    String name() const override { return "failing"; }
    std::span<const Label> labels() const noexcept override { return {}; }
    Value call(Interpreter&, Arguments, const ReportError&) const override { throw VeltoError(VeltoError::Step::scan); }
  };
  const auto logger = std::make_shared<ArrayLogger>();
  EXPECT_THROW(run("throwing()", logger, makeRef<Failing>()), VeltoError);
  EXPECT_EQ(logger->messages.size(), 1u);  // called here
}

}  // namespace
}  // namespace velto::test
