// The tests that the pages on the architecture and on reliability name are there.
#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "harness/Case.h"

namespace {

namespace files = std::filesystem;

/// The part of a page between two of its headings.
std::string between(const std::string& page, const std::string& begin, const std::string& end) {
  return page.substr(page.find("\n" + begin), page.find("\n" + end) - page.find("\n" + begin));
}

/// The names between backquotes in the last column of its tables.
std::vector<std::string> testsNamed(const std::string& page) {
  std::vector<std::string> names;
  std::istringstream lines(page);
  const std::regex quoted("`([^`]+)`");
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| ")) continue;
    const std::string column = line.substr(line.rfind('|', line.size() - 2));
    for (std::sregex_iterator found(column.begin(), column.end(), quoted), end; found != end; ++found) {
      names.push_back((*found)[1]);
    }
  }
  return names;
}

/// "(Suite, Name)" for every test of the sources, without the macro's own name.
std::string allTests() {
  std::string tests;
  const std::regex head(R"(TEST(_F|_P)?(\([^)]*\)))");
  for (const char* const folder : {"tests/unit", "tests/reliability"}) {
    for (const files::directory_entry& entry : files::recursive_directory_iterator(folder)) {
      if (entry.path().extension() != ".cpp") continue;
      const std::string text = harness::readFile(entry.path());
      for (std::sregex_iterator found(text.begin(), text.end(), head), end; found != end; ++found) {
        tests += (*found)[2];
      }
    }
  }
  return tests;
}

void expectTests(const std::vector<std::string>& names) {
  ASSERT_GT(names.size(), 20u);
  const std::string tests = allTests();
  for (const std::string& name : names) {
    const std::size_t dot = name.find('.');
    const bool isPath = name.starts_with("tests/");
    const std::string test = "(" + name.substr(0, dot) + ", " + name.substr(dot + 1) + ")";
    EXPECT_TRUE(isPath ? files::exists(name) : tests.find(test) != std::string::npos) << name;
  }
}

TEST(Architecture, NamesTestsThatAreThere) {
  expectTests(testsNamed(between(harness::readFile("docs/ARCHITECTURE.md"), "## Invariants\n", "## What was decided")));
}

TEST(Reliability, NamesTestsThatAreThere) {
  expectTests(testsNamed(between(harness::readFile("docs/RELIABILITY.md"), "## What leaves", "## To see it again")));
}

}  // namespace
