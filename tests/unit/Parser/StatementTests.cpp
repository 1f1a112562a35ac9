// Declarations, simple statements, semicolons and recovery.
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

/// A host's logger that fails.
template <typename Exception>
class ThrowingLogger final : public Logger {
 public:
  explicit ThrowingLogger(Exception exception) : exception_(exception) {}

  using Logger::report;
  void report(const Message&) override { throw exception_; }

 private:
  Exception exception_;
};

template <typename Exception>
Statements parseFailing(std::string_view source, Exception exception) {
  return Parser(programTokens(source), std::make_shared<ThrowingLogger<Exception>>(exception)).parse();
}

TEST(ParserStatements, GivesSimpleStatements) {
  expectRows(
      {
          {"", ""},
          {"break", "break"},
          {"break;", "break"},
          {"continue", "continue"},
          {"continue; x", "continue x"},
          {"include \"a\"", "(include 'a')"},
          {"include \"a\"; include \"b\" include c;", "(include 'a') (include 'b') (include c)"},
          {"x", "x"},
          {"x;", "x"},
          {"x = 1;;", "(= x 1)"},
          {"y;;", "y ! 1:3-1:4 Expected expression."},
          {";", "! 1:1-1:2 Expected expression."},
      },
      parsedProgram);
  expectRows(
      {
          {"a<%= x; %>b", "(text a) (<%= x) (text b)"},
          {"<%= x = 1;; %>", "(<%= (= x 1))"},
          {"<%= if %>b", "(text b) ! 1:5-1:7 Expected expression."},
          {"a<% f %><% (x) %>b", "(text a) (call f x) (text b)"},
          {"a<% f %> <% (x) %>b", "(text a) f (text  ) (group x) (text b)"},
      },
      parsedTemplate);
}

TEST(ParserStatements, GivesVariables) {
  expectRows(
      {
          {"var x", "(var x)"},
          {"var x;", "(var x)"},
          {"var x = 1", "(var x 1)"},
          {"var x = y = 1;;", "(var x (= y 1))"},
          {"var x = 1;;", "(var x 1) ! 1:11-1:12 Expected expression."},
          {"var", "! 1:1-1:4 Expect variable name."},
          {"var 1", "! 1:5-1:6 Expect variable name."},
          {"var if", "! 1:5-1:7 Expect variable name."},
          {"var _x", "! 1:5-1:6 Expect variable name."},
      },
      parsedProgram);
}

TEST(ParserStatements, GivesFunctions) {
  expectRows(
      {
          {"func f() end", "(func f () [])"},
          {"func f(a, b x, _ y) end", "(func f (a:a b:x _:y) [])"},
          {"func f(a x, a y) end", "(func f (a:x a:y) [])"},
          {"func f() x y; func g() end end", "(func f () [x y (func g () [])])"},
          {"func f(a x, b x) end", "! 1:15-1:16 Duplicate function parameters 'x'."},
          {"func f(a, b a) end", "! 1:13-1:14 Duplicate function parameters 'a'."},
          {"func f(\u00E9, b ae\u0301, c \u00E9) end", "! 1:19-1:20 Duplicate function parameters '\u00E9'."},
          {"func f(_) end", "! 1:8-1:9 Expect parameter name."},
          {"func f(_, a) end", "! 1:8-1:9 Expect parameter name."},
          {"func f(a,) end", "! 1:10-1:11 Expect parameter label."},
          {"func f(1) end", "! 1:8-1:9 Expect parameter label."},
          {"func f(a b c) end", "! 1:12-1:13 Expect ')' after parameters."},
          {"func f(a", "! 1:8-1:9 Expect ')' after parameters."},
          {"func () end", "! 1:6-1:7 Expect function name."},
          {"func", "! 1:1-1:5 Expect function name."},
          {"func f end", "! 1:8-1:11 Expect '(' after function name."},
          {"func f() x", "! 1:10-1:11 Expect 'end' after block."},
          {"func f() ; end", "! 1:10-1:11 Expected expression. ! 1:12-1:15 Expect 'end' after block."},
      },
      parsedProgram);
}

TEST(ParserStatements, GivesReturnsWithAndWithoutValue) {
  expectRows(
      {
          {"return 1", "(return 1)"},
          {"return;", "(return)"},
          {"return; x", "(return) x"},
          {"return x = 1;", "(return (= x 1))"},
          {"return x;", "(return x) ! 1:9-1:10 Expected expression."},
          {"return\nx", "(return x)"},
      },
      parsedProgram);
}

TEST(ParserStatements, GoesOnBehindAReturnWhoseValueFails) {
  expectRows(
      {
          {"func f() return end", "(func f () [(return)]) ! 1:17-1:20 Expected expression. (dropped)"},
          {"if a return end x", "(if a [(return)]) x ! 1:13-1:16 Expected expression. (dropped)"},
          {"return ) x", "(return) ! 1:8-1:9 Expected expression. ! 1:8-1:9 Expected expression."},
          {"func f() return (1 + end", "(func f () [(return)]) ! 1:22-1:25 Expected expression. (dropped)"},
          {"func f() return a.b = 1 end", "(func f () [(return)]) ! 1:21-1:22 Invalid assignment target. (dropped)"},
          {"return f(1 2) x", "(return) 2 ! 1:12-1:13 Expect ')' after arguments. ! 1:13-1:14 Expected expression."},
      },
      parsedProgram);
}

TEST(ParserStatements, DropsTheTokenOfAnErrorAndGoesToALikelyStatement) {
  expectRows(
      {
          {"end", "! 1:1-1:4 Expected expression."},
          {") x y if a end", "(if a []) ! 1:1-1:2 Expected expression."},
          {") for a in b end", "(for (a) b []) ! 1:1-1:2 Expected expression."},
          {") return 1", "(return 1) ! 1:1-1:2 Expected expression."},
          {") while a end", "(while a []) ! 1:1-1:2 Expected expression."},
          {") func var switch include break continue end else case default ; x", "! 1:1-1:2 Expected expression."},
          {"( if a end", "! 1:3-1:5 Expected expression."},
          {"f(1 if a end return 2", "(return 2) ! 1:5-1:7 Expect ')' after arguments."},
      },
      parsedProgram);
  expectRows(
      {
          {"a<% ) %>b<%= c %>", "(text a) (text b) (<%= c) ! 1:5-1:6 Expected expression."},
          {"<% ) %><%= a %><% var b %>c", "(text c) ! 1:4-1:5 Expected expression."},
      },
      parsedTemplate);
}

TEST(ParserStatements, KeepsABlockWhoseElementFails) {
  expectRows(
      {
          {"func f() ) if a end b end", "(func f () [(if a []) b]) ! 1:10-1:11 Expected expression."},
          {"if a ) end x", "! 1:6-1:7 Expected expression. ! 1:12-1:13 Expect 'end' after if."},
          {"if a ) end if b end end", "(if a [(if b [])]) ! 1:6-1:7 Expected expression."},
      },
      parsedProgram);
  expectRows(
      {{"<% if a %>b<% ) %>c<% end %>d", "(if a [(text b) (text c)]) (text d) ! 1:15-1:16 Expected expression."}},
      parsedTemplate);
}

TEST(ParserStatements, GivesExactRanges) {
  expectRows(
      {
          {"func f(a) x end", "(func f (a:a) [x@1:11-1:12@1:11-1:12])@1:6-1:16"},
          {"var x = 1;", "(var x 1@1:9-1:10)@1:1-1:10"},
          {"var x;", "(var x)@1:1-1:6"},
          {"return x", "(return x@1:8-1:9)@1:1-1:9"},
          {"return;", "(return)@1:1-1:7"},
          {"func f() return end", "(func f () [(return)@1:10-1:16])@1:6-1:20"},
          {"break;", "break@1:1-1:6"},
          {"continue", "continue@1:1-1:9"},
          {"include \"a\";", "(include 'a'@1:9-1:12)@1:1-1:12"},
      },
      parsedRanges);
  Parser parser(templateTokens("ab\n<%= x; %>"), std::make_shared<ArrayLogger>());
  EXPECT_EQ(TreePrinter(true).text(parser.parse()), "(text ab\n)@1:1-2:1 (<%= x@2:5-2:6)@2:1-2:6");
}

TEST(Parser, OfNoTokensGivesNothing) {
  const auto logger = std::make_shared<ArrayLogger>();
  Parser parser({}, logger);
  EXPECT_TRUE(parser.parse().empty());
  EXPECT_FALSE(parser.hadError());
  EXPECT_TRUE(logger->messages.empty());
}

TEST(Parser, KeepsItsErrorAndGivesNothingTheSecondTime) {
  Parser parser(programTokens("a ) b"), std::make_shared<ArrayLogger>());
  EXPECT_FALSE(parser.hadError());
  EXPECT_EQ(TreePrinter().text(parser.parse()), "a");
  EXPECT_TRUE(parser.hadError());
  EXPECT_TRUE(parser.parse().empty());
  EXPECT_TRUE(parser.hadError());
}

TEST(Parser, LetsLackOfMemoryPass) {
  EXPECT_THROW(parseFailing(")", std::bad_alloc()), std::bad_alloc);
  EXPECT_THROW(parseFailing("return )", std::bad_alloc()), std::bad_alloc);
}

TEST(Parser, DropsWhateverTheValueOfAReturnThrows) {
  EXPECT_EQ(TreePrinter().text(parseFailing("func f() return end", std::runtime_error("full"))),
            "(func f () [(return)])");
}

TEST(ParserDeathTest, StopsAtAnUnknownError) {
  EXPECT_DEATH(parseFailing(")", std::runtime_error("full")), "fatal: Unknown error 'full'\\.\n");
  EXPECT_DEATH(parseFailing(")", 1), "fatal: Unknown error '.*'\\.\n");
}

TEST(ParserDeathTest, StopsAtAReturnThatEndsTheText) {
  EXPECT_DEATH(parsedProgram("x return"), "fatal: Expected expression\\.\n");
}

}  // namespace
}  // namespace velto
