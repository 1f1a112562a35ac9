// Files by their bytes, to be compared.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace velto::test {

/// The bytes of files by their paths.
using Files = std::map<std::string, std::string>;

/// What lies in a folder of this machine, by the paths from there.
inline Files filesIn(const std::filesystem::path& folder) {
  Files found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    found[entry.path().lexically_relative(folder).string()] = {std::istreambuf_iterator<char>(file), {}};
  }
  return found;
}

}  // namespace velto::test
