// What a host sees of a run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestHost.h"

namespace velto {
namespace {

using test::TestHost;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Processor, RunsAnEmptyFile) {
  TestHost host;
  host.run("");
  EXPECT_EQ(host.output(), "");
  EXPECT_FALSE(host.step);
}

TEST(Processor, VerifiesGlobalsAndLoadsLibrariesForAnEmptyFile) {
  struct Noting final : Library {
    explicit Noting(int& loads) : loads(loads) {}
    void load(Interpreter&) override { ++loads; }
    int& loads;
  };
  TestHost host;
  int loads = 0;
  host.processor.libraries.push_back(std::make_shared<Noting>(loads));
  host.processor.globals["bad"] = *HostValue(std::vector<std::string>{"a"}).asValue();
  host.run("");
  EXPECT_EQ(loads, 1);
  EXPECT_EQ(host.messages().size(), 1u);
}

TEST(Processor, TakesTwoSignsForTheNameOfAFile) {
  TestHost host;
  host.files->files["/page"] = "text";
  host.run("process(\"page\", into: \"+-1\") process(\"page\", into: \"+\")");
  EXPECT_EQ(host.files->files["/+-1"], "text");
  EXPECT_EQ(host.files->files["/+"], "text");
}

TEST(Processor, LetsAReadErrorPass) {
  TestHost host;
  try {
    host.processor.process("missing.velto");
    FAIL() << "a missing file was read";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "No such file or directory");
  }
  EXPECT_THAT(host.logger->messages, IsEmpty());
}

TEST(Processor, TellsTheStepThatFailed) {
  EXPECT_EQ(TestHost().run("<%").step, VeltoError::Step::scan);
  EXPECT_EQ(TestHost().run("var").step, VeltoError::Step::parse);
  EXPECT_EQ(TestHost().run("missing()").step, VeltoError::Step::interpret);
  EXPECT_EQ(TestHost().run("print(1)").step, std::nullopt);
}

TEST(Processor, RunsAllButTheInvalidGlobals) {
  TestHost host;
  host.processor.globals["bad"] = *HostValue(std::vector<std::string>{"a"}).asValue();
  host.processor.globals["good"] = "text";
  host.run("print(good)");
  EXPECT_EQ(host.output(), "text");
  EXPECT_THAT(host.messages(), ElementsAre(":0:0...0:0: error: Global variable 'bad' was assigned an invalid value."));
  EXPECT_EQ(host.step, VeltoError::Step::interpret);
}

TEST(Processor, FailsAtTheReadOfAnInvalidGlobal) {
  TestHost host;
  host.processor.globals["bad"] = *HostValue(std::vector<std::string>{"a"}).asValue();
  host.run("print(bad)");
  EXPECT_THAT(host.messages(), ElementsAre(":0:0...0:0: error: Global variable 'bad' was assigned an invalid value.",
                                           "main.velto:1:7...1:10: error: Undefined variable 'bad'."));
}

TEST(Processor, LetsAGlobalReplaceABuiltInFunction) {
  TestHost host;
  host.processor.globals["print"] = "no longer a function";
  host.run("print(1)");
  EXPECT_THAT(host.messages(), ElementsAre("main.velto:1:6...1:7: error: Can only call functions and classes."));
}

TEST(Processor, LetsALibraryReplaceAGlobal) {
  struct Naming final : Library {
    void load(Interpreter& interpreter) override { interpreter.globals().define("name", "of the library"); }
  };
  TestHost host;
  host.processor.globals["name"] = "of the host";
  host.processor.libraries.push_back(std::make_shared<Naming>());
  host.run("print(name)");
  EXPECT_EQ(host.output(), "of the library");
}

TEST(Processor, LoadsLibrariesInTheirOrder) {
  struct Naming final : Library {
    explicit Naming(const char* name) : name(name) {}
    void load(Interpreter& interpreter) override { interpreter.globals().define("name", name); }
    const char* name;
  };
  TestHost host;
  host.processor.libraries = {std::make_shared<Naming>("first"), std::make_shared<Naming>("second")};
  host.run("print(name)");
  EXPECT_EQ(host.output(), "second");
  host.processor.libraries.pop_back();
  host.run("print(name)");
  EXPECT_EQ(host.output(), "secondfirst");
}

TEST(Processor, TellsOfTheProgramBeforeTheGlobals) {
  TestHost host;
  host.processor.globals["bad"] = *HostValue(std::vector<std::string>{"a"}).asValue();
  host.run("if false var a = 1 var a = 2 end");
  EXPECT_THAT(host.messages(),
              ElementsAre("main.velto:1:24...1:25: error: Variable with this name already declared in this scope.",
                          ":0:0...0:0: error: Global variable 'bad' was assigned an invalid value."));
}

TEST(Processor, TakesTheGlobalsAnewInEachCall) {
  TestHost host;
  host.processor.globals["a"] = 1;
  host.run("print(a)");
  host.processor.globals["a"] = 2;
  host.run("print(a)");
  host.processor.globals.clear();
  host.run("print(a)");
  EXPECT_EQ(host.output(), "12");
  EXPECT_THAT(host.messages(), ElementsAre("main.velto:1:7...1:8: error: Undefined variable 'a'."));
}

TEST(Processor, KeepsNothingBetweenTwoCalls) {
  TestHost host;
  host.run("var a = 1").run("print(a)");
  EXPECT_THAT(host.messages(), ElementsAre("main.velto:1:7...1:8: error: Undefined variable 'a'."));
}

TEST(Processor, SeesAChangeBetweenTwoCalls) {
  TestHost host;
  host.files->files["/page.txt"] = "one,";
  host.run("include \"page.txt\"");
  host.files->files["/page.txt"] = "two";
  host.run("include \"page.txt\"");
  EXPECT_EQ(host.output(), "one,two");
}

TEST(Processor, KeepsTheGivenLogger) {
  const auto logger = std::make_shared<ArrayLogger>();
  const Processor processor(Url("x"), logger);
  EXPECT_EQ(processor.logger, logger);
}

TEST(Processor, WritesNothingAnywhereWithoutALogger) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = "missing";
  Processor null(Url(""), nullptr, files);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_THROW(Processor(Url("nowhere")).process("main.velto"), FileError);
  EXPECT_THROW(null.process("main.velto"), VeltoError);
  null.logger = nullptr;
  EXPECT_THROW(null.process("main.velto"), VeltoError);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(std::dynamic_pointer_cast<ArrayLogger>(null.logger)->messages.size(), 1u);
}

/// Loads another library into the processor that is loading it.
struct NestingLibrary final : Library {
  void load(Interpreter& interpreter) override {
    interpreter.globals().define("loads", ++loads);
    for (int count = 0; count < 10; ++count) processor->libraries.push_back(nullptr);
  }
  Processor* processor = nullptr;
  int loads = 0;
};

TEST(Processor, GoesOnWithWhatItFoundWhereTheHostChangesIt) {
  struct ClearingLogger final : Logger {
    void report(const Message&) override { processor->globals.clear(); }
    Processor* processor = nullptr;
  };
  TestHost host;
  const auto logger = std::make_shared<ClearingLogger>();
  const auto library = std::make_shared<NestingLibrary>();
  logger->processor = library->processor = &host.processor;
  host.processor.logger = logger;
  host.processor.libraries = {library, nullptr, library};
  host.processor.globals["bad"] = makeRef<HostArray>(std::vector<HostValue>{HostValue(1)});
  host.processor.globals["c"] = 3;
  host.run("print(loads) print(c)");
  EXPECT_EQ(host.output(), "23");
  EXPECT_TRUE(host.processor.globals.empty());
  EXPECT_EQ(host.processor.libraries.size(), 23u);
}

TEST(Processor, IsSilentWithoutALogger) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = "missing";
  Processor silent(Url(""), std::make_shared<ArrayLogger>(), files);
  EXPECT_THROW(silent.process("main.velto"), VeltoError);
  EXPECT_EQ(std::dynamic_pointer_cast<ArrayLogger>(silent.logger)->messages.size(), 1u);
  EXPECT_NE(std::dynamic_pointer_cast<ArrayLogger>(Processor(Url("")).logger), nullptr);
}

TEST(Processor, ShowsFilesUnderTheBaseAsItWasGiven) {
  TestHost host;
  host.files->files["/sub/main.velto"] = "a";
  Processor processor(Url("sub"), host.logger, host.files);
  EXPECT_THROW(processor.process("main.velto"), VeltoError);
  EXPECT_THAT(host.messages(), ElementsAre("sub/main.velto:1:1...1:2: error: Undefined variable 'a'."));
}

TEST(Processor, WritesWhatWasPrintedBeforeAFailure) {
  TestHost host;
  host.run("print(1) print(2) missing print(3)");
  EXPECT_EQ(host.output(), "12");
}

TEST(Processor, GoesOnAfterTheResolverReported) {
  TestHost host;
  host.run("func f(a) var a = 1 end print(2)");
  EXPECT_EQ(host.output(), "2");
  EXPECT_FALSE(host.step);
  EXPECT_THAT(host.messages(), ElementsAre("main.velto:1:15...1:16: error: Variable with this name already declared in "
                                           "this scope."));
}

}  // namespace
}  // namespace velto
