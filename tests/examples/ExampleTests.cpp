// Runs every example as its README.md says and compares what it wrote with its folder "expected": ExampleTests COMMAND
// EXAMPLES. With VELTO_UPDATE=1 in the environment that folder is rewritten instead.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>

#include "Document.h"
#include "harness/Case.h"
#include "harness/Command.h"
#include "harness/Difference.h"

namespace {

namespace files = std::filesystem;

/// The texts of all files below a folder, by their relative paths.
using Tree = std::map<std::string, std::string>;

Tree treeOf(const files::path& folder) {
  Tree tree;
  for (const files::directory_entry& entry : files::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    tree[entry.path().lexically_relative(folder).generic_string()] = harness::readFile(entry.path());
  }
  return tree;
}

bool shouldUpdate() {
  const char* update = std::getenv("VELTO_UPDATE");
  return update != nullptr && std::string_view(update) == "1";
}

/// Where the command line says that the output goes.
std::string outputOf(const std::vector<std::string>& arguments) {
  const auto option = std::find(arguments.begin(), arguments.end(), "--output");
  if (option == arguments.end() || option + 1 == arguments.end()) throw std::runtime_error("no --output");
  return *(option + 1);
}

void compare(const Tree& expected, const Tree& written) {
  for (const auto& [name, text] : expected) {
    const auto found = written.find(name);
    if (found == written.end()) {
      ADD_FAILURE() << name << " wasn't written";
    } else {
      EXPECT_TRUE(found->second == text) << name << '\n' << harness::difference(text, found->second);
    }
  }
  for (const auto& [name, text] : written) {
    EXPECT_TRUE(expected.contains(name)) << name << " isn't expected";
  }
}

class ExampleTest final : public testing::Test {
 public:
  ExampleTest(files::path command, files::path folder) : command_(std::move(command)), folder_(std::move(folder)) {}

  void TestBody() override {
    const documents::Example example = documents::examplesOf(documents::blocksOf(readMe())).at(0);
    const harness::TemporaryFolder place;
    files::copy(folder_.parent_path(), place.path() / "examples", files::copy_options::recursive);
    const harness::CommandResult result = harness::runCommand(command_, example.arguments(), place.path());
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.standardError, "");
    EXPECT_EQ(result.standardOutput, example.find("output")->body);
    check(place.path() / outputOf(example.arguments()));
  }

 private:
  std::string readMe() const { return harness::readFile(folder_ / "README.md"); }

  void check(const files::path& written) const {
    if (shouldUpdate()) {
      files::remove_all(folder_ / "expected");
      files::copy(written, folder_ / "expected", files::copy_options::recursive);
    }
    compare(treeOf(folder_ / "expected"), treeOf(written));
  }

  files::path command_;
  files::path folder_;
};

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count != 3) {
    std::cerr << "usage: ExampleTests COMMAND EXAMPLES\n";
    return 2;
  }
  const files::path command = files::absolute(arguments[1]);
  for (const files::directory_entry& entry : files::directory_iterator(arguments[2])) {
    const files::path folder = entry.path();
    if (!files::exists(folder / "expected")) continue;
    testing::RegisterTest("Examples", folder.filename().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [=]() -> testing::Test* { return new ExampleTest(command, folder); });
  }
  return RUN_ALL_TESTS();
}
