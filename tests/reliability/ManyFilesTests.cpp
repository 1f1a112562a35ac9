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
#include "tests/reliability/FolderTest.h"
#include "tests/reliability/Sanitizers.h"

namespace velto::test {
namespace {

constexpr int fileCount = 100'000;
constexpr int folderCount = 100;

/// Memory, where the machine has a folder for it.
std::filesystem::path fastFolder() {
  const std::filesystem::path inMemory = "/dev/shm";
  const bool isThere = std::filesystem::is_directory(inMemory) && ::access(inMemory.c_str(), W_OK) == 0;
  return isThere ? inMemory : std::filesystem::temp_directory_path();
}

class ManyFiles : public FolderTest {
 protected:
  ManyFiles() : FolderTest(fastFolder()) {}
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
