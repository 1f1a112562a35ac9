// The project's own sources, read as text.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sources {

/// A text file as its lines.
std::vector<std::string> linesOf(const std::filesystem::path& path);
std::string textOf(const std::filesystem::path& path);

/// The C++ files below a folder, sorted, as paths with slashes relative to the project's root, which is the current
/// folder.
std::vector<std::string> filesBelow(const std::string& folder);

/// One `#include` line: the path as written, and whether it stands in quotes.
struct Include {
  std::string path;
  bool isQuoted = false;
};

std::vector<Include> includesOf(const std::string& file);

}  // namespace sources
