// Who may include whom: each file stands on a floor and includes only its own floor or a lower one.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <set>

#include "Sources.h"

namespace {

using sources::Include;

struct Floor {
  std::string prefix;
  int number;
};

/// The first prefix that fits decides.
const std::array floors{
    Floor{"Velto/Forward.h", 0},
    Floor{"Velto/Version.", 0},
    Floor{"Velto/Platform/", 0},
    Floor{"Velto/Diagnostics/", 1},
    Floor{"Velto/Value/", 2},
    Floor{"Velto/Scanner/", 3},
    Floor{"Velto/Parser/", 4},
    Floor{"Velto/Interpreter/Bindings.", 5},
    Floor{"Velto/Interpreter/Environment.", 5},
    Floor{"Velto/Interpreter/Locals.", 5},
    Floor{"Velto/Library/Library.h", 5},
    Floor{"Velto/Processor/Parse", 5},
    Floor{"Velto/Interpreter/", 6},
    Floor{"Velto/Library/", 7},
    Floor{"Velto/Processor/", 8},
    Floor{"Velto/Velto.h", 8},
    Floor{"tools/", 9},
    Floor{"examples/", 9},
};

std::optional<int> floorOf(const std::string& file) {
  for (const Floor& floor : floors) {
    if (file.starts_with(floor.prefix)) return floor.number;
  }
  return std::nullopt;
}

/// The one include upward: an interpreter is made with the built-in libraries.
bool isTheKnot(const std::string& file, const Include& include) {
  return file == "Velto/Interpreter/Interpreter.cpp" && include.path == "Velto/Library/BuiltInLibraries.h";
}

/// The headers of C++ have no extension; those of C stand in the standard library as <c...>.
bool isStandardHeader(const Include& include) {
  return !include.isQuoted && !include.path.ends_with(".h");
}

bool isOneOf(const std::string& path, const std::initializer_list<std::string>& prefixes) {
  for (const std::string& prefix : prefixes) {
    if (path.starts_with(prefix)) return true;
  }
  return false;
}

bool isFromSimdjson(const Include& include) {
  return include.path.starts_with("simdjson");
}
bool isFromBoost(const Include& include) {
  return include.path.starts_with("boost/");
}
bool isFromIcu(const Include& include) {
  return include.path.starts_with("unicode/");
}

TEST(Layers, EveryFileStandsOnAFloor) {
  const std::vector<std::string> files = sources::filesBelow("Velto");
  EXPECT_GT(files.size(), 60u);
  for (const std::string& file : files) EXPECT_TRUE(floorOf(file).has_value()) << file;
}

TEST(Layers, NothingIncludesAHigherFloor) {
  for (const std::string& file : sources::filesBelow("Velto")) {
    for (const Include& include : sources::includesOf(file)) {
      if (!include.isQuoted || isTheKnot(file, include)) continue;
      const std::optional<int> floor = floorOf(include.path);
      ASSERT_TRUE(floor.has_value()) << file << " includes " << include.path;
      EXPECT_LE(*floor, floorOf(file).value_or(-1)) << file << " includes " << include.path;
    }
  }
}

TEST(Layers, IncludesOfTheLibraryAreFullPathsOfRealFiles) {
  for (const std::string& file : sources::filesBelow("Velto")) {
    for (const Include& include : sources::includesOf(file)) {
      if (!include.isQuoted) continue;
      EXPECT_TRUE(include.path.starts_with("Velto/")) << file << " includes " << include.path;
      EXPECT_TRUE(std::filesystem::exists(include.path)) << file << " includes " << include.path;
    }
  }
}

TEST(Layers, OnlyThePlatformKnowsTheSystem) {
  const std::set<std::string> systemHeaders{"filesystem", "fstream", "iostream", "cstdio", "csignal", "random"};
  for (const std::string& file : sources::filesBelow("Velto")) {
    if (file.starts_with("Velto/Platform/")) continue;
    for (const Include& include : sources::includesOf(file)) {
      EXPECT_FALSE(isFromIcu(include)) << file << " includes " << include.path;
      EXPECT_FALSE(isOneOf(include.path, {"boost/url"})) << file << " includes " << include.path;
      EXPECT_FALSE(systemHeaders.contains(include.path)) << file << " includes " << include.path;
      const bool isKnown = include.isQuoted || isStandardHeader(include) || isFromSimdjson(include);
      EXPECT_TRUE(isKnown || isFromBoost(include)) << file << " includes " << include.path;
    }
  }
}

TEST(Layers, OnlyOneFileReadsJson) {
  std::set<std::string> users;
  for (const std::string& file : sources::filesBelow("Velto")) {
    for (const Include& include : sources::includesOf(file)) {
      if (isFromSimdjson(include)) users.insert(file);
    }
  }
  ASSERT_EQ(users.size(), 1u);
  EXPECT_TRUE(users.begin()->starts_with("Velto/Library/JSON")) << *users.begin();
}

TEST(Layers, TheCommandSeesOnlyWhatEveryHostSees) {
  for (const std::string& file : sources::filesBelow("tools")) {
    for (const Include& include : sources::includesOf(file)) {
      const bool isPublic = include.path == "Velto/Velto.h" || !include.path.starts_with("Velto/");
      EXPECT_TRUE(isPublic) << file << " includes " << include.path;
    }
  }
}

}  // namespace
