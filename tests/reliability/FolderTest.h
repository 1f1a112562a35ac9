// A folder of this machine that goes with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>

namespace velto::test {

class FolderTest : public testing::Test {
 protected:
  explicit FolderTest(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string pattern = (parent / "velto-files-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    folder = pattern;
  }
  ~FolderTest() override {
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

}  // namespace velto::test
