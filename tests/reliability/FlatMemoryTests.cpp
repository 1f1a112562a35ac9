// Memory over millions of turns.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <iostream>
#include <string>

#include "Velto/Velto.h"
#include "tests/reliability/Endurance.h"
#include "tests/support/TestHost.h"

namespace velto::test {
namespace {

long peakOfMemory() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

struct Kind {
  std::string name;
  std::string body;
};

class FlatMemory : public testing::TestWithParam<Kind> {
 protected:
  static constexpr int iterationsOfARound = 100'000;
  static constexpr int rounds = 100;

  enum Result { flat, grown, notShown };

  /// Runs the body ten million times if the time allows, and compares the peak with that after the first hundred
  /// thousand.
  Result run() const {
    const Share share;
    long peakAtFirst = 0;
    int done = 0;
    TestHost host;
    host.files->files["/piece.txt"] = "<% var x = i %>";
    host.processor.globals["goesOn"] = makeRef<Function0>("goesOn", [&]() -> Value {
      if (++done == 1) peakAtFirst = peakOfMemory();
      return !share.isUsedUp();
    });
    const std::string program =
        "func twice(_ x) return x + x end var list = [3, 1, 2] func less(_ a, _ b) return a < b end\n"
        "for round in 0..<rounds for i in 0..<iterations " +
        GetParam().body + " end if !goesOn() break end end";
    host.processor.globals["rounds"] = 1;
    host.processor.globals["iterations"] = 1000;
    host.run(program);  // brings in the code and all that is made once
    done = 0;
    host.processor.globals["rounds"] = rounds;
    host.processor.globals["iterations"] = iterationsOfARound;
    host.run(program);
    const double growth = static_cast<double>(peakOfMemory()) / static_cast<double>(peakAtFirst) - 1;
    std::cout << "  " << GetParam().name << ": " << done * iterationsOfARound << " iterations, peak " << peakOfMemory()
              << " KiB, grown by " << 100 * growth << " %" << (done < rounds ? ": too few, not shown" : "")
              << std::endl;
    if (host.step || growth > 0.05) return grown;
    return done < rounds ? notShown : flat;
  }
};

TEST_P(FlatMemory, StaysWhereItWas) {
  const int status = inAnotherProcess([this] { return run(); });
  ASSERT_TRUE(WIFEXITED(status));
  ASSERT_NE(WEXITSTATUS(status), notShown) << "The time was up before all iterations.";
  EXPECT_EQ(WEXITSTATUS(status), flat);
}

INSTANTIATE_TEST_SUITE_P(
    Of, FlatMemory,
    testing::Values(
        Kind{"Blocks", "if true var a = i while true var b = a break end end"}, Kind{"Calls", "twice(twice(i))"},
        Kind{"Functions", "func inner(_ x) return x + i end inner(1)"},
        Kind{"Closures", "func make() var n = i func get() return n end return get end var got = make() got()"},
        Kind{"StoredFunctions",
             "func inner() return i end var held = [inner, [\"k\": [inner]]] var both = [held, held]"},
        Kind{"StoredMembers", R"v(func inner() return i end var found = "text \(i)".contains var each = [i, 2].map)v"},
        Kind{"Recursion", "func count(_ n) if n > 0 return count(n - 1) end return 0 end count(3)"},
        Kind{"Texts", R"v(var text = "\(i)é\(i)" text = "\(text)\(text)" text.uppercased().snakeCased())v"},
        Kind{"Collections", "var values = [i, [\"a\": i, \"b\": [i]]] values[1][\"b\"] == [i]"},
        Kind{"Callbacks", "list.map(twice).sorted(by: less)"}, Kind{"Includes", "include \"piece.txt\""},
        Kind{"Processes", "process(\"piece.txt\", into: \"/out\")"}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace velto::test
