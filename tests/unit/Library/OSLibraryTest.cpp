// `copy` and `mkdir`.
#include "Velto/Library/OSLibrary.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/MemoryFileSystem.h"

namespace velto {
namespace {

class OSLibraryTest : public testing::Test {
 protected:
  Value copy(const Value& from, const Value& to) { return call("copy", {from, to}); }
  Value mkdir(const Value& path) { return call("mkdir", {path}); }

  const Callable& function(const String& name) {
    const std::optional<Value> value = interpreter.globals().get(name);
    if (!value || !value->callable()) throw std::logic_error("no such function");
    return *value->callable();
  }

  Value call(const String& name, Arguments arguments) {
    const auto fail = [](const String& message) { throw std::runtime_error(std::string(message)); };
    return function(name).call(interpreter, arguments, ReportError(fail));
  }

  std::shared_ptr<MemoryFileSystem> files = std::make_shared<MemoryFileSystem>();
  Interpreter interpreter{Url("/base"), std::make_shared<ArrayLogger>(), files};
};

TEST_F(OSLibraryTest, DefinesTwoFunctions) {
  EXPECT_EQ(function("copy").name(), String("copy"));
  ASSERT_EQ(function("copy").arity(), 2);
  EXPECT_EQ(function("copy").labels()[0], String("from"));
  EXPECT_EQ(function("copy").labels()[1], String("to"));
  EXPECT_EQ(function("mkdir").name(), String("mkdir"));
  ASSERT_EQ(function("mkdir").arity(), 1);
  EXPECT_FALSE(function("mkdir").labels()[0]);
}

TEST_F(OSLibraryTest, CopiesFromTheBaseToTheCurrentDirectory) {
  files->files["/base/a"] = "x";
  EXPECT_EQ(copy("a", "b"), Value(true));
  EXPECT_EQ(files->files["/b"], "x");
}

TEST_F(OSLibraryTest, AnAbsoluteSourceIgnoresTheBase) {
  files->files = {{"/abs/a", "x"}, {"/base/abs/a", "y"}};
  EXPECT_EQ(copy("/abs/a", "b"), Value(true));
  EXPECT_EQ(files->files["/b"], "x");
}

TEST_F(OSLibraryTest, WithoutABaseTheSourceIsTakenAsItStands) {
  files->files["/a"] = "x";
  Interpreter bare(std::nullopt, std::make_shared<ArrayLogger>(), files);
  const auto fail = [](const String&) { throw std::runtime_error("failed"); };
  const Value from = "a";
  const Value to = "b";
  EXPECT_EQ(bare.globals().get("copy")->callable()->call(bare, {from, to}, ReportError(fail)), Value(true));
  EXPECT_EQ(files->files["/b"], "x");
}

TEST_F(OSLibraryTest, CreatesTheFoldersOfTheDestinationWhateverComesOfIt) {
  EXPECT_EQ(copy("missing", "x/y/b"), Value(false));
  EXPECT_TRUE(files->directories.contains("/x/y"));
  EXPECT_FALSE(files->directories.contains("/x/y/b"));
}

TEST_F(OSLibraryTest, ASecondCopyIsRefused) {
  files->files["/base/a"] = "x";
  EXPECT_EQ(copy("a", "b"), Value(true));
  files->files["/base/a"] = "y";
  EXPECT_EQ(copy("a", "b"), Value(false));
  EXPECT_EQ(files->files["/b"], "x");
}

TEST_F(OSLibraryTest, CopiesFolders) {
  files->files = {{"/base/dir/a", "x"}, {"/base/dir/sub/b", "y"}};
  EXPECT_EQ(copy("dir", "out/dir"), Value(true));
  EXPECT_EQ(files->files["/out/dir/sub/b"], "y");
}

TEST_F(OSLibraryTest, CopyExpectsTwoStrings) {
  const auto messageOf = [&](const Value& from, const Value& to) -> std::string {
    try {
      copy(from, to);
      return "none";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  };
  EXPECT_EQ(messageOf(3, "b"), "`copy` expects two strings, got '3', 'b'.");
  EXPECT_EQ(messageOf("a", nullptr), "`copy` expects two strings, got 'a', 'nil'.");
  EXPECT_EQ(messageOf(true, 1.5), "`copy` expects two strings, got 'true', '1.5'.");
}

TEST_F(OSLibraryTest, MkdirCreatesAllParentsFromTheCurrentDirectory) {
  EXPECT_EQ(mkdir("out/sub"), Value(true));
  EXPECT_TRUE(files->directories.contains("/out/sub"));
  EXPECT_EQ(mkdir("out/sub"), Value(true));
}

TEST_F(OSLibraryTest, MkdirTellsAFailureByItsResult) {
  files->files["/file"] = "";
  EXPECT_EQ(mkdir("file"), Value(false));
  EXPECT_EQ(mkdir("file/sub"), Value(false));
  EXPECT_EQ(mkdir(3), Value(false));
  EXPECT_EQ(mkdir(nullptr), Value(false));
}

}  // namespace
}  // namespace velto
