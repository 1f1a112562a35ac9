// Sources, chains and values that are deeper than any stack.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/reliability/Depth.h"

namespace velto::test {
namespace {

using testing::Contains;
using testing::IsEmpty;

struct Source {
  std::string name;
  std::string open;
  std::string middle = "1";
  std::string close = "";
  bool isTemplate = false;
};

class DeepSource : public testing::TestWithParam<Source> {
 protected:
  /// That `range`, far inside the nested openings, is that of one of the tokens of which one of them consists.
  static void expectTokenInside(const Range& range) {
    const std::string& open = GetParam().open;
    const Int width = static_cast<Int>(open.size());
    EXPECT_EQ(range.file, file());
    EXPECT_EQ(range.startLine, 1);
    EXPECT_EQ(range.endLine, 1);
    EXPECT_GT(range.startColumn, (isSanitized ? 10 : 50) * width);
    EXPECT_LE(range.startColumn, depth * width);
    const Int before = (range.startColumn - 1) / width * width;
    std::vector<std::string> places;
    const Scanner::Mode mode = GetParam().isTemplate ? Scanner::Mode::template_ : Scanner::Mode::program;
    const auto logger = std::make_shared<ArrayLogger>();
    for (const Token& token : Unpacker(Scanner(open, mode, logger, file()).scanTokens(), logger).unpack()) {
      places.push_back(columns(token.range));
    }
    EXPECT_THAT(places, Contains(std::to_string(range.startColumn - before) + "..." +
                                 std::to_string(range.endColumn - before)));
  }

  static std::string file() { return GetParam().isTemplate ? "template" : "main.velto"; }

 private:
  static std::string columns(const Range& range) {
    return std::to_string(range.startColumn) + "..." + std::to_string(range.endColumn);
  }
};

TEST_P(DeepSource, IsASyntaxErrorAtTheTokenThatIsTooDeep) {
  const bool isTemplate = GetParam().isTemplate;
  const std::string source = repeated(GetParam().open) + GetParam().middle + repeated(GetParam().close);
  std::vector<Int> columns;
  onBothStacks([&] {
    TestHost host;
    if (isTemplate) host.files->files["/" + file()] = source;
    host.run(isTemplate ? "include \"" + file() + "\"" : source);
    EXPECT_EQ(host.step, isTemplate ? VeltoError::Step::interpret : VeltoError::Step::parse);
    ASSERT_FALSE(host.logger->messages.empty());
    const Message& message = host.logger->messages.front();
    EXPECT_EQ(message.message, "Nesting is too deep.");
    EXPECT_EQ(message.level, Message::Level::error);
    expectTokenInside(message.range());
    columns.push_back(message.range().startColumn);
    EXPECT_EQ(host.output(), "");
    expectToGoOn(host);
  });
  // The small stack ends earlier.
  ASSERT_EQ(columns.size(), 2u);
  EXPECT_LT(columns[1], columns[0]);
}

INSTANTIATE_TEST_SUITE_P(
    Nested, DeepSource,
    testing::Values(Source{"Parentheses", "(", "1", ")"}, Source{"Arrays", "[", "1", "]"},
                    Source{"Dictionaries", "[1:", "1", "]"}, Source{"Minus", "-"}, Source{"Not", "!", "true"},
                    Source{"Ifs", "if true ", "1", "end "}, Source{"Elses", "if a else; ", "1", "end "},
                    Source{"Whiles", "while true ", "1", "end "}, Source{"Loops", "for i in 0...0 ", "1", "end "},
                    Source{"Functions", "func f() ", "1", "end "},
                    Source{"Switches", "switch 1 default: ", "1", "end "}, Source{"Calls", "f(", "1", ")"},
                    Source{"Subscripts", "a[", "1", "]"}, Source{"Assignments", "a="},
                    Source{"TemplateIfs", "<% if true %>", "1", "<% end %>", true},
                    Source{"TemplateLoops", "<% for i in 0...0 %>x", "1", "<% end %>", true}),
    [](const auto& info) { return info.param.name; });

struct Chain {
  std::string name;
  std::string first;
  std::string link;
  std::size_t inner = 0;  // where another expression ends within the link
};

class DeepChain : public testing::TestWithParam<Chain> {
 protected:
  /// That `range` is one of the expressions which the chain consists of. Gives how many links that one has.
  static Int expectLinksFromTheStart(const Range& range) {
    const auto& [name, first, link, inner] = GetParam();
    const Int length = static_cast<Int>(link.size());
    const Int linked = range.endColumn - 1 - static_cast<Int>(first.size());
    EXPECT_EQ(range.file, "main.velto");
    EXPECT_EQ(range.startLine, 2);
    EXPECT_EQ(range.startColumn, 1);
    EXPECT_EQ(range.endLine, 2);
    EXPECT_TRUE(linked % length == 0 || linked % length == static_cast<Int>(inner)) << linked;
    EXPECT_GT(linked, 0);
    return linked / length;
  }
};

TEST_P(DeepChain, ExhaustsTheStackWhenItIsEvaluated) {
  const auto& [name, first, link, inner] = GetParam();
  const std::string program = "print(\"before\")\n" + first + repeated(link) + "\nprint(\"behind\")";
  std::vector<Int> linksLeft;
  onBothStacks([&] {
    TestHost host;
    host.run(program);
    EXPECT_EQ(host.step, VeltoError::Step::interpret);
    EXPECT_EQ(host.output(), "before");
    // The resolver may come to the end of the stack before, and lets the program run.
    ASSERT_FALSE(host.logger->messages.empty());
    for (const Message& message : host.logger->messages) {
      EXPECT_EQ(message.level, Message::Level::error);
      EXPECT_EQ(message.message, "Stack exhausted.");
      linksLeft.push_back(expectLinksFromTheStart(message.range()));
    }
    EXPECT_LT(linksLeft.back(), depth - (isSanitized ? 10 : 50));
    expectToGoOn(host);
  });
  // With less stack more of the chain is left when the evaluation ends.
  EXPECT_GT(linksLeft.back(), linksLeft.front());
}

INSTANTIATE_TEST_SUITE_P(Long, DeepChain,
                         testing::Values(Chain{"Additions", "1", "+1"}, Chain{"Conjunctions", "true", "&&true"},
                                         Chain{"Comparisons", "1", "==1"}, Chain{"Calls", "print", "()"},
                                         Chain{"Members", "a", ".b"},
                                         Chain{"MemberCalls", "\"a\"", ".snakeCased()", 11},
                                         Chain{"Subscripts", "a", "[0]"}, Chain{"Checks", "1", " is Number"}),
                         [](const auto& info) { return info.param.name; });

TEST(LongBranches, AreNoDepth) {
  onBothStacks([] {
    TestHost host;
    host.run("var a = 0\nif a == 1 print(1)" + repeated(" else if a == 2 print(2)") + " else print(3) end");
    EXPECT_THAT(host.messages(), IsEmpty());
    EXPECT_EQ(host.output(), "3");
    expectToGoOn(host);
  });
}

struct Wrapping {
  std::string name;
  std::string open;
  std::string close;
  std::string printedOpen;
};

class DeepValue : public testing::TestWithParam<Wrapping> {
 protected:
  /// A program that makes the variable `name` so deep.
  static std::string nested(const std::string& name) {
    const auto& [test, open, close, printed] = GetParam();
    return "var " + name + " = 1 for i in 0..<" + std::to_string(depth) + " " + name + " = " + open + name + close +
           " end\n";
  }
};

TEST_P(DeepValue, IsPrinted) {
  const std::string expected = repeated(GetParam().printedOpen) + "1" + repeated("]");
  onBothStacks([&] {
    TestHost host;
    host.run(nested("a") + "print(a)");
    EXPECT_THAT(host.messages(), IsEmpty());
    EXPECT_TRUE(host.output() == expected);
    expectToGoOn(host);
  });
}

TEST_P(DeepValue, IsComparedSortedAndDropped) {
  onBothStacks([&] {
    TestHost host;
    host.run(nested("a") + nested("b") +
             "func areEqual(_ x, _ y) return x == y end\n"
             R"v(print("\(a == b) \(a == [b]) \(a is Number) ") )v"
             "print([a, b, a].sorted(by: areEqual).count)\n"
             "switch a case b: print(\" same\") default: print(\" other\") end\n"
             "a = nil b = nil print(\" dropped\")");
    EXPECT_THAT(host.messages(), IsEmpty());
    EXPECT_EQ(host.output(), "true false false 3 same dropped");
    expectToGoOn(host);
  });
}

TEST_P(DeepValue, IsHashedVerifiedAndTakenAsAGlobal) {
  const auto nested = [] {
    Value value = 1;
    for (int level = 0; level < depth; ++level) {
      value = GetParam().name == "Arrays" ? Value::arrayLiteral({value}) : Value::dictionaryLiteral({{"k", value}});
    }
    return value;
  };
  const Value value = nested();
  onBothStacks([&] {
    EXPECT_TRUE(Value::verify(value));
    Dictionary dictionary;
    dictionary.set(value, "found");
    EXPECT_EQ(*dictionary.find(nested()), Value("found"));
    TestHost host;
    host.processor.globals["deep"] = value;
    host.run("print(deep is Number)");
    EXPECT_EQ(host.output(), "false");
    EXPECT_THAT(host.messages(), IsEmpty());
    expectToGoOn(host);
  });
}

INSTANTIATE_TEST_SUITE_P(Deep, DeepValue,
                         testing::Values(Wrapping{"Arrays", "[", "]", "["},
                                         Wrapping{"Dictionaries", "[\"k\": ", "]", "[k: "}),
                         [](const auto& info) { return info.param.name; });

TEST(DeepClosures, AreCalledAndDropped) {
  onBothStacks([] {
    TestHost host;
    host.run(
        "var last = nil func wrap(_ inner) func get() return inner end return get end\n"
        "for i in 0..<" +
        std::to_string(depth) +
        " last = wrap(last) end\n"
        "print(last() is Number) last = nil print(\" dropped\")");
    EXPECT_THAT(host.messages(), IsEmpty());
    EXPECT_EQ(host.output(), "false dropped");
    expectToGoOn(host);
  });
}

TEST(DeepDocument, IsNilWhereTheStackIsTooSmall) {
  const std::string arrays = repeated("[") + repeated("]");
  const std::string objects = repeated("{\"a\":") + "1" + repeated("}");
  constexpr int moderateDepth = isSanitized ? 30 : 300;
  const std::string moderate = repeated("[", moderateDepth) + repeated("]", moderateDepth);
  onBothStacks([&] {
    TestHost host;
    host.files->files = {{"/a.json", arrays}, {"/b.json", objects}, {"/c.json", moderate}};
    host.run(
        R"v(var a = loadJSON("a.json") var b = loadJSON("b.json") print("\(a) \(b) ") print(loadJSON("c.json")))v");
    EXPECT_THAT(host.messages(), IsEmpty());
    EXPECT_EQ(host.output(), "nil nil " + moderate);
    expectToGoOn(host);
  });
}

}  // namespace
}  // namespace velto::test
