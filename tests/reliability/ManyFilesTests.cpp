// A run that writes very many files.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include "Velto/Velto.h"
#include "tests/reliability/Descriptors.h"
#include "tests/reliability/Endurance.h"
#include "tests/reliability/Sanitizers.h"

namespace velto::test {
namespace {

constexpr int fileCount = 100'000;
constexpr int folderCount = 100;

/// A folder that goes with the test, in memory where the machine has such a place.
class ManyFiles : public testing::Test {
 protected:
  ManyFiles() {
    const std::filesystem::path inMemory = "/dev/shm";
    const bool isThere = std::filesystem::is_directory(inMemory) && ::access(inMemory.c_str(), W_OK) == 0;
    std::string pattern =
        ((isThere ? inMemory : std::filesystem::temp_directory_path()) / "velto-many-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    folder = pattern;
  }
  ~ManyFiles() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }

  std::string read(const std::string& name) const {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder;
};

TEST_F(ManyFiles, TakeNoMoreThanThreeDescriptorsAtOnce) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  constexpr int descriptors = 3;
  write("main.velto", R"v(for i in 0..<folders mkdir("\(folder)/\(i)")
  for j in 0..<filesOfEach process("page", into: "\(folder)/\(i)/\(j)") end
end)v");
  write("page", "<% include \"piece\" %><%= loadJSON(\"a.json\") %>");
  write("piece", "<%= i %> <%= j %> ");
  write("a.json", "[1]");
  const int status = inAnotherProcess([this] {
    limitDescriptors(descriptors);
    const auto logger = std::make_shared<ArrayLogger>();
    Processor processor(Url(folder.string()), logger);
    processor.globals["folder"] = folder.string();
    processor.globals["folders"] = folderCount;
    processor.globals["filesOfEach"] = fileCount / folderCount;
    processor.process("main.velto");
    return logger->messages.empty() ? 0 : 1;
  });
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  int right = 0;
  for (int i = 0; i < folderCount; ++i) {
    const std::string name = std::to_string(i);
    for (int j = 0; j < fileCount / folderCount; ++j) {
      const std::string inner = std::to_string(j);
      if (read(name + "/" + inner) == name + " " + inner + " [1]") ++right;
    }
  }
  EXPECT_EQ(right, fileCount);
  std::cout << right << " files written with at most " << descriptors << " descriptors at once" << std::endl;
}

}  // namespace
}  // namespace velto::test
