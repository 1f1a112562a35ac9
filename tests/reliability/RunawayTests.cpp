// What calls itself without end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/reliability/Depth.h"

namespace velto::test {
namespace {

using testing::Contains;

/// Something that comes back to itself in `body`, and where that may be when the stack ends: one of these parts of it.
struct Runaway {
  std::string name;
  std::string before;
  std::string body;
  std::string after;
  std::vector<std::string> places;
  std::string file = "main.velto";
};

class RunawayRecursion : public testing::TestWithParam<Runaway> {
 protected:
  static std::string program() {
    return "print(\"before\")\n" + GetParam().before + GetParam().body + GetParam().after;
  }

  /// The messages of which the first one has to be one.
  static std::vector<std::string> reports() {
    const auto& [name, before, body, after, places, file] = GetParam();
    const std::string line = file == "main.velto" ? "2:" : "1:";
    const std::size_t bodyBegin = file == "main.velto" ? before.size() : 0;
    const std::string& source = file == "main.velto" ? body : files.at("/" + file);
    std::vector<std::string> reports;
    for (const std::string& place : places) {
      const std::size_t begin = bodyBegin + source.find(place) + 1;
      reports.push_back(file + ":" + line + std::to_string(begin) + "..." + line +
                        std::to_string(begin + place.size()) + ": error: Stack exhausted.");
    }
    return reports;
  }

  static inline const std::map<std::string, std::string> files = {
      {"/include", "<% include \"include\" %>"},
      {"/process", "<% process(\"process\", into: \"/out\") %>"},
      {"/execute", "execute(\"execute\")"},
      {"/twice", "<% include \"twice\" %><% include \"twice\" %>"}};
};

TEST_P(RunawayRecursion, IsReportedAndEndsTheFailingPart) {
  onBothStacks([] {
    TestHost host;
    host.files->files = files;
    host.run(program());
    EXPECT_EQ(host.step, VeltoError::Step::interpret);
    EXPECT_EQ(host.output(), "before");
    ASSERT_FALSE(host.logger->messages.empty());
    EXPECT_THAT(reports(), Contains(exact(host.logger->messages.front())));
    expectToGoOn(host);
  });
}

INSTANTIATE_TEST_SUITE_P(
    Of, RunawayRecursion,
    testing::Values(
        Runaway{"Functions", "func f() ", "f()", " end f()", {"f()"}},
        Runaway{"EmptyBlocks", "func f() ", "if true end f()", " end f()", {"if true", "f()"}},
        Runaway{"Values", "func f() ", "return 1 + f()", " end f()", {"return 1 + f()", "1 + f()", "f()"}},
        Runaway{"TwoFunctions",
                "func f() ",
                "return g() end func g() return f()",
                " end f()",
                {"return g()", "g()", "return f()", "f()"}},
        Runaway{"Maps",
                "func f(_ x) ",
                "return [x].map(f)",
                " end f(1)",
                {"return [x].map(f)", "[x].map(f)", "[x].map", "[x]"}},
        Runaway{"Filters",
                "func f(_ x) ",
                "return [x].filter(f)",
                " end f(1)",
                {"return [x].filter(f)", "[x].filter(f)", "[x].filter", "[x]"}},
        Runaway{"Sorts",
                "func f(_ a, _ b) ",
                "return [a, b].sorted(by: f)",
                " end f(1, 2)",
                {"return [a, b].sorted(by: f)", "[a, b].sorted(by: f)", "[a, b].sorted", "[a, b]"}},
        Runaway{"Texts", "func f() ", "return \"\\(f())\"", " end f()", {"return \"\\(", "\"\\(", "f()"}},
        Runaway{"Loops",
                "func f() ",
                "for i in [1, 2] while true f() end end",
                " end f()",
                {"for i in [1, 2] while true f() end end", "[1, 2]", "while true f() end", "f()"}},
        Runaway{"Branches",
                "func f() ",
                "switch 1 case 1: if true f() end end",
                " end f()",
                {"switch 1 case 1: if true f() end end", "if true f()", "f()"}},
        Runaway{"Includes", "include \"include\"", "", "", {"\"include\""}, "include"},
        Runaway{"IncludesTwice", "include \"twice\"", "", "", {"\"twice\""}, "twice"},
        Runaway{"Processes",
                "process(\"process\", into: \"/out\")",
                "",
                "",
                {"process(\"process\", into: \"/out\")", "\"process\""},
                "process"},
        Runaway{"Executions", "execute(\"execute\")", "", "", {"execute(\"execute\")", "\"execute\""}, "execute"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace velto::test
