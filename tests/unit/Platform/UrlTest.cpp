// Addresses: kept as given, joined, shortened, folded, and resolved from the texts of URLs.
#include "Velto/Platform/Url.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velto {
namespace {

std::string textOf(const Url& url) {
  return std::string(url.path());
}

TEST(UrlTest, KeepsThePathAsGiven) {
  for (const char* path : {"a", "dir/main.velto", "/base/a", "./a", "../a", "a//b", "a b", "%20", "\xC3\xA9", ""}) {
    EXPECT_EQ(textOf(Url(path)), path);
    EXPECT_FALSE(Url(path).isDirectory()) << path;
  }
}

TEST(UrlTest, TakesASlashAtTheEndAsTheSignOfADirectory) {
  const std::vector<std::pair<const char*, const char*>> table = {{"dir/", "dir"}, {"a/b/", "a/b"}, {"dir//", "dir"},
                                                                  {"/", "/"},      {"//", "/"},     {"./", "."}};
  for (const auto& [given, path] : table) {
    EXPECT_EQ(textOf(Url(given)), path);
    EXPECT_TRUE(Url(given).isDirectory()) << given;
  }
}

TEST(UrlTest, MakesADirectoryThatDoesNotShowIt) {
  EXPECT_TRUE(Url::directory("dir").isDirectory());
  EXPECT_EQ(Url::directory("dir"), Url("dir/"));
  EXPECT_TRUE(Url::directory("").isDirectory());
  EXPECT_EQ(textOf(Url::directory("")), "");
}

TEST(UrlTest, AppendsAComponentWithOneSlash) {
  struct Row {
    const char* base;
    const char* component;
    const char* path;
  };
  const std::vector<Row> table = {{"dir", "a", "dir/a"},
                                  {"dir/", "a", "dir/a"},
                                  {"dir", "/a", "dir/a"},
                                  {"dir/", "/a", "dir/a"},
                                  {"dir", "//a", "dir/a"},
                                  {"/", "a", "/a"},
                                  {"/", "/a", "/a"},
                                  {"", "main.velto", "main.velto"},
                                  {"", "/a", "a"},
                                  {".", "a", "./a"},
                                  {"..", "a", "../a"},
                                  {"dir", "", "dir"},
                                  {"", "", ""},
                                  {"dir", "a/b", "dir/a/b"},
                                  {"dir", "../a", "dir/../a"},
                                  {"dir", "a/", "dir/a"},
                                  {"dir", "/", "dir"},
                                  {"", "./a", "./a"}};
  for (const Row& row : table) {
    EXPECT_EQ(textOf(Url(row.base).appendingPathComponent(row.component)), row.path)
        << "'" << row.base << "' + '" << row.component << "'";
  }
}

TEST(UrlTest, TheComponentTellsWhetherItIsADirectory) {
  EXPECT_TRUE(Url("dir").appendingPathComponent("a/").isDirectory());
  EXPECT_FALSE(Url("dir/").appendingPathComponent("a").isDirectory());
}

TEST(UrlTest, DeletesTheLastPathComponent) {
  const std::vector<std::pair<const char*, const char*>> table = {
      {"a/b", "a"},  {"a", ""},     {"/a", "/"},      {"/", "/"},     {"", ""},
      {"a/b/", "a"}, {"a//b", "a"}, {"a/b/c", "a/b"}, {"../a", ".."}, {"/a/b", "/a"}};
  for (const auto& [given, path] : table) {
    const Url shortened = Url(given).deletingLastPathComponent();
    EXPECT_EQ(textOf(shortened), path) << given;
    EXPECT_TRUE(shortened.isDirectory()) << given;
  }
}

TEST(UrlTest, StandardizesByTextAlone) {
  const std::vector<std::pair<const char*, const char*>> table = {{"a/./b", "a/b"},
                                                                  {"a//b", "a/b"},
                                                                  {"a/../b", "b"},
                                                                  {"./a", "a"},
                                                                  {"a/..", ""},
                                                                  {"../a", "../a"},
                                                                  {"../../a", "../../a"},
                                                                  {"a/../../b", "../b"},
                                                                  {"/..", "/"},
                                                                  {"/../a", "/a"},
                                                                  {"//a///b", "/a/b"},
                                                                  {"/a/./b/../c", "/a/c"},
                                                                  {".", ""},
                                                                  {"", ""},
                                                                  {"/", "/"},
                                                                  {"a/b/", "a/b"},
                                                                  {"a.b/..c", "a.b/..c"},
                                                                  {"a/...", "a/..."}};
  for (const auto& [given, path] : table) EXPECT_EQ(textOf(Url(given).standardized()), path) << given;
  EXPECT_TRUE(Url("a/./b/").standardized().isDirectory());
}

TEST(UrlTest, EqualAddressesHaveEqualHashes) {
  EXPECT_EQ(Url("a/b"), Url("a/b"));
  EXPECT_EQ(std::hash<Url>()(Url("a/b")), std::hash<Url>()(Url("a/b")));
  EXPECT_NE(Url("a/b"), Url("a/./b"));
  EXPECT_EQ(Url("a/b").standardized(), Url("a/./b").standardized());
}

TEST(UrlTest, EquivalentNamesAreDifferentFiles) {
  EXPECT_NE(Url("e\xCC\x81"), Url("\xC3\xA9"));
}

class UrlResolvingTest : public testing::Test {
 protected:
  static std::string resolved(std::string_view text, const Url& base = Url("/base/dir/")) {
    const std::optional<Url> url = Url::resolving(text, base, Url("/home/"));
    return url ? textOf(*url) : "none";
  }
};

TEST_F(UrlResolvingTest, FollowsTheRulesOfReferences) {
  const std::vector<std::pair<const char*, const char*>> table = {
      {"a.json", "/base/dir/a.json"},
      {"x/a.json", "/base/dir/x/a.json"},
      {"./a", "/base/dir/a"},
      {"../a", "/base/a"},
      {"../../a", "/a"},
      {"../../../../a", "/a"},
      {"x/../a", "/base/dir/a"},
      {"x/./a", "/base/dir/x/a"},
      {"x/..", "/base/dir"},
      {"..", "/base"},
      {".", "/base/dir"},
      {"/a", "/a"},
      {"/x/../a", "/a"},
      {"/../a", "/a"},
      {"", "/base/dir"},
      {"a//b", "/base/dir/a//b"},
      {"a//../b", "/base/dir/a/b"},
      {"./a:b", "/base/dir/a:b"},
      {"...", "/base/dir/..."},
  };
  for (const auto& [text, path] : table) EXPECT_EQ(resolved(text), path) << text;
}

TEST_F(UrlResolvingTest, ABaseThatIsNoDirectoryLosesItsLastComponent) {
  EXPECT_EQ(resolved("a", Url("/base/dir")), "/base/a");
  EXPECT_EQ(resolved("../a", Url("/base/dir")), "/a");
  EXPECT_EQ(resolved("", Url("/base/dir")), "/base/dir");
  EXPECT_EQ(resolved("a", Url::directory("/base/dir")), "/base/dir/a");
  EXPECT_EQ(resolved("a", Url("/")), "/a");
}

TEST_F(UrlResolvingTest, TheCurrentDirectoryCompletesARelativeBase) {
  EXPECT_EQ(resolved("a", Url("dir/")), "/home/dir/a");
  EXPECT_EQ(resolved("a", Url("dir")), "/home/a");
  EXPECT_EQ(resolved("a", Url::directory("")), "/home/a");
  EXPECT_EQ(resolved("../a", Url("./")), "/a");
  EXPECT_EQ(resolved("../a", Url("../")), "/a");
}

TEST_F(UrlResolvingTest, StepsOfTheBaseAreTaken) {
  const std::vector<std::vector<std::string_view>> cases = {{"a", "/base/./", "/base/a"},
                                                            {"../a", "/base/dir/./", "/base/a"},
                                                            {"../a", "/base/dir/x/../", "/base/a"},
                                                            {"../../a", "/base/./dir/.", "/a"},
                                                            {"a", "/base/dir/..", "/base/dir/a"},
                                                            {"a", "/../base/", "/base/a"},
                                                            {"../a", "/base/.../", "/base/a"},
                                                            {"../a", "/base/%2E/", "/base/a"},
                                                            {"/a", "/base/../", "/a"},
                                                            {"", "/base/./x/../", "/base/./x/.."}};
  for (const auto& row : cases) EXPECT_EQ(resolved(row[0], Url(String(row[1]))), row[2]) << row[0] << " " << row[1];
}

TEST_F(UrlResolvingTest, TheBaseIsAPathAndNoUrl) {
  EXPECT_EQ(resolved("a", Url("/a b%20c?#/")), "/a b%20c?#/a");
  EXPECT_EQ(resolved("", Url("/a b%20c?#/")), "/a b%20c?#");
}

TEST_F(UrlResolvingTest, DecodesPercents) {
  EXPECT_EQ(resolved("a%20b.json"), "/base/dir/a b.json");
  EXPECT_EQ(resolved("%C3%A9"), "/base/dir/\xC3\xA9");
  EXPECT_EQ(resolved("%c3%a9"), "/base/dir/\xC3\xA9");
  EXPECT_EQ(resolved("%25"), "/base/dir/%");
  EXPECT_EQ(resolved("a%3Fb%23c"), "/base/dir/a?b#c");
  EXPECT_EQ(resolved("x/%2E%2E/../a"), "/base/dir/x/a");
  EXPECT_EQ(resolved("/%5B%5D"), "/[]");
}

TEST_F(UrlResolvingTest, TakesFileUrlsOfThisMachineOnly) {
  for (const char* text : {"file:///a", "FILE:///a", "file:/a", "file://localhost/a", "file://LocalHost/a",
                           "//localhost/a", "///a", "file:///x/../a", "file:///a?b", "file:///a#b"}) {
    EXPECT_EQ(resolved(text), "/a") << text;
  }
  for (const char* text : {"http://localhost/a", "file://host/a", "//host/a", "data:a", "file:a", "file:", "file://",
                           "//localhost", "//[::1]/a", "a:b", "file:?", "a:?b", "a:#", "a: "}) {
    EXPECT_EQ(resolved(text), "none") << text;
  }
}

TEST_F(UrlResolvingTest, CutsOffQueryAndFragment) {
  EXPECT_EQ(resolved("a?b"), "/base/dir/a");
  EXPECT_EQ(resolved("a#b"), "/base/dir/a");
  EXPECT_EQ(resolved("a?b/../c#d"), "/base/dir/a");
  EXPECT_EQ(resolved("?b"), "/base/dir");
  EXPECT_EQ(resolved("#b"), "/base/dir");
}

TEST_F(UrlResolvingTest, RefusesTextThatIsNoUrl) {
  for (const char* text : {"a b",  " a",    "a ",   "a\"b", "a<b",  "a>b",   "a^b",  "a|b", "a{b",      "a}b",
                           "a[b",  "a]b",   "a`b",  "a\\b", "a%",   "a%2",   "a%2g", "%zz", "\xC3\xA9", "a\tb",
                           "a\nb", "a\x7F", "a?%2", "a? ",  "a#\"", "a#b#c", "1:2",  ":a"}) {
    EXPECT_EQ(resolved(text), "none") << text;
  }
  EXPECT_EQ(resolved(std::string_view("a\0b", 3)), "none");
}

TEST_F(UrlResolvingTest, TakesAllOtherCharacters) {
  EXPECT_EQ(resolved("AZaz09-._~!$&'()*+,;=:@"), "none");  // a colon in the first segment ends a scheme
  EXPECT_EQ(resolved("AZaz09-._~!$&'()*+,;=@"), "/base/dir/AZaz09-._~!$&'()*+,;=@");
  EXPECT_EQ(resolved("./:"), "/base/dir/:");
}

TEST_F(UrlResolvingTest, RefusesPathsThatNoFileCanHave) {
  EXPECT_EQ(resolved("a%00b"), "none");
  EXPECT_EQ(resolved("%ff"), "none");
  EXPECT_EQ(resolved("%C3/%A9"), "none");
}

TEST_F(UrlResolvingTest, TellsDirectories) {
  const Url base("/base/");
  for (const char* text : {"a/", ".", "..", "a/.", "a/..", "/"}) {
    EXPECT_TRUE(Url::resolving(text, base, base)->isDirectory()) << text;
  }
  EXPECT_FALSE(Url::resolving("a", base, base)->isDirectory());
}

}  // namespace
}  // namespace velto
