// The project's own sources, read as text.
#include "Sources.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace sources {

std::vector<std::string> linesOf(const std::filesystem::path& path) {
  std::ifstream stream(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string textOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::vector<std::string> filesBelow(const std::string& folder) {
  const std::set<std::string> extensions{".h", ".cpp", ".def"};
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (extensions.contains(entry.path().extension().string())) paths.push_back(entry.path().generic_string());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::vector<Include> includesOf(const std::string& file) {
  static const std::regex form(R"(\s*#\s*include\s*(["<])([^">]+)[">].*)");
  std::vector<Include> includes;
  for (const std::string& line : linesOf(file)) {
    std::smatch match;
    if (std::regex_match(line, match, form)) includes.push_back({match[2], match[1] == "\""});
  }
  return includes;
}

}  // namespace sources
