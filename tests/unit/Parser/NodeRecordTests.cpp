// That a node says what its record said, however it is kept.
#include <gtest/gtest.h>

#include <functional>
#include <unordered_set>

#include "Velto/Parser/StatementNodes.h"
#include "Velto/Value/Array.h"
#include "tests/unit/Parser/TreeDescription.h"
#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

/// Further to the right than a node can tell by itself.
constexpr Int farRight = 1'000'000;

std::vector<Token> shifted(std::vector<Token> tokens) {
  for (Token& token : tokens) {
    token.range.startColumn += farRight;
    token.range.endColumn += farRight;
  }
  return tokens;
}

Statements statementsOf(std::vector<Token> tokens) {
  return Parser(std::move(tokens), std::make_shared<ArrayLogger>()).parse();
}

/// Every kind of node but `Case`, which stands in its `Switch`, and `Tuple`, which stands in its `For`.
std::vector<std::vector<Token>> samples() {
  return {
      programTokens("func f(_ a, with b, c) if a < b && !(b == -1) return [a: \"\\(a) of \\(b)\"] else if c return; "
                    "else a = b[0] end end"),
      programTokens("for i in 0..<10 break; continue; end for (k, v) in [:] end while true x = y = nil; end"),
      programTokens("var a var bb = f(1, x: [1, 2.5, false])[0].name.length is String || []"),
      programTokens("switch a case is T: 1 case \"two\n lines\": \"\" break default: include \"a\\(b)c\"; end"),
      programTokens("ένα = \"δύο\".τρία(τέσσερα: 4) is Πέντε"),
      templateTokens("text <%= a + 1 %>\n more <% if b %>x<% end %>"),
  };
}

/// Calls `visit` with each expression and statement of a tree, from the inside out.
class Walk {
 public:
  explicit Walk(std::function<void(const Expression&)> visitExpression,
                std::function<void(const Statement&)> visitStatement)
      : visitExpression_(std::move(visitExpression)), visitStatement_(std::move(visitStatement)) {}

  void through(const Statements& statements) const { each(statements); }

 private:
  void each(const Expression& expression) const {
    ExpressionKinds::dispatch(expression.kind(),
                              [&]<typename Record>(std::type_identity<Record>) { parts(*expression.as<Record>()); });
    visitExpression_(expression);
  }
  void each(const Statement& statement) const {
    StatementKinds::dispatch(statement.kind(),
                             [&]<typename Record>(std::type_identity<Record>) { parts(*statement.as<Record>()); });
    visitStatement_(statement);
  }
  void each(const Case& clause) const { each(Statement(clause)); }
  void each(const Tuple& tuple) const { each(Expression(tuple)); }
  void each(const IfBranch& branch) const {
    each(branch.condition);
    each(branch.statements);
  }
  void each(const Call::Argument& argument) const { each(argument.value); }
  void each(const StringExpression::Interpolation& interpolation) const { each(interpolation.value); }
  void each(const std::pair<Expression, Expression>& pair) const {
    each(pair.first);
    each(pair.second);
  }
  void each(const Pattern& pattern) const {
    if (const auto* expression = std::get_if<Expression>(&pattern)) each(*expression);
  }
  template <typename Part>
  void each(const std::optional<Part>& part) const {
    if (part) each(*part);
  }
  template <typename Part>
  void each(const std::vector<Part>& all) const {
    for (const Part& part : all) each(part);
  }
  void each(const Token&) const {}
  void each(const Range&) const {}
  void each(const String&) const {}
  void each(const Value&) const {}
  void each(const FunctionParameter&) const {}
  template <typename Record>
  void parts(const Record& record) const {
    std::apply([&](const auto&... part) { (each(part), ...); }, partsOf(record));
  }

  std::function<void(const Expression&)> visitExpression_;
  std::function<void(const Statement&)> visitStatement_;
};

TEST(NodeRecord, IsTheSameWhetherItIsPackedOrSpelledOut) {
  for (const std::vector<Token>& tokens : samples()) {
    Parser parser(tokens, std::make_shared<ArrayLogger>());
    const Statements packed = parser.parse();
    ASSERT_FALSE(parser.hadError());
    const Statements spelledOut = statementsOf(shifted(tokens));
    EXPECT_EQ(TreeDescription().of(packed), TreeDescription(farRight).of(spelledOut));
  }
}

TEST(NodeRecord, IsPackedWhereTheProgramIsUsual) {
  const auto expectPacked = [](const auto& node) { EXPECT_FALSE(NodeAccess::isSpelledOut(node.node())); };
  const auto expectSpelledOut = [](const auto& node) { EXPECT_TRUE(NodeAccess::isSpelledOut(node.node())); };
  for (const std::vector<Token>& tokens : samples()) {
    Walk(
        [&](const Expression& node) {
          if (!node.as<Tuple>()) expectPacked(node);  // which the walk has made of a record
        },
        [&](const Statement& node) {
          if (!node.as<Case>()) expectPacked(node);  // the same
        })
        .through(statementsOf(tokens));
    Walk(expectSpelledOut, [&](const Statement& node) {
      if (!node.as<ExpressionStatement>()) expectSpelledOut(node);  // which has no place of its own
    }).through(statementsOf(shifted(tokens)));
  }
}

TEST(NodeRecord, KeepsItsIdentityInCopies) {
  for (const std::vector<Token>& tokens : samples()) {
    for (const std::vector<Token>& each : {tokens, shifted(tokens)}) {
      Walk(
          [](const Expression& expression) {
            ExpressionKinds::dispatch(expression.kind(), [&]<typename Record>(std::type_identity<Record>) {
              const Record record = *expression.as<Record>();
              EXPECT_EQ(record.id, expression.id());
              const Expression copy = record;
              EXPECT_EQ(copy.id(), expression.id());
              EXPECT_EQ(copy.range(), expression.range());
              EXPECT_EQ(TreeDescription().of(copy), TreeDescription().of(expression));
            });
          },
          [](const Statement& statement) {
            StatementKinds::dispatch(statement.kind(), [&]<typename Record>(std::type_identity<Record>) {
              const Statement copy = *statement.as<Record>();
              EXPECT_EQ(copy.range(), statement.range());
              EXPECT_EQ(TreeDescription().of(copy), TreeDescription().of(statement));
            });
          })
          .through(statementsOf(each));
    }
  }
}

TEST(NodeRecord, HasAnIdentityThatNoOtherHas) {
  std::unordered_set<Uuid> identities;
  std::size_t count = 0;
  for (const std::vector<Token>& tokens : samples()) {
    Walk(
        [&](const Expression& expression) {
          identities.insert(expression.id());
          ++count;
        },
        [](const Statement&) {})
        .through(statementsOf(tokens));
  }
  EXPECT_EQ(identities.size(), count);
}

/// Something that a host may have done to a token, and a node can't tell by itself.
struct Oddity {
  std::string_view name;
  std::function<void(Token&)> change;
};

TEST(NodeRecord, SaysWhateverItsTokensSay) {
  const std::vector<Oddity> oddities{
      {"none", [](Token&) {}},
      {"other text",
       [](Token& token) {
         token.lexeme = String::concatenation({token.lexeme, "odd"});
       }},
      {"no text", [](Token& token) { token.lexeme = String(); }},
      {"the same text elsewhere", [](Token& token) { token.lexeme = String(std::string(token.lexeme)); }},
      {"longer", [](Token& token) { token.range.endColumn += 300; }},
      {"shorter", [](Token& token) { token.range.endColumn -= 1; }},
      {"ends on the next line", [](Token& token) { token.range.endLine += 1; }},
      {"starts elsewhere", [](Token& token) { token.range.startColumn += 1; }},
      {"starts on a later line", [](Token& token) { token.range.startLine += 7; }},
      {"a literal", [](Token& token) { token.literal = token.literal ? token.literal : Value(5); }},
      {"before the beginning", [](Token& token) { token.range.startLine = -3; }},
      {"a file of the same name", [](Token& token) { token.range.file = String(std::string(token.range.file)); }},
  };
  for (const std::vector<Token>& tokens : samples()) {
    for (std::size_t index = 0; index < tokens.size(); ++index) {
      for (const Oddity& oddity : oddities) {
        std::vector<Token> odd = tokens;
        oddity.change(odd[index]);
        EXPECT_EQ(TreeDescription().of(statementsOf(odd)), TreeDescription(farRight).of(statementsOf(shifted(odd))))
            << oddity.name << ": " << odd[index].description();
      }
    }
  }
}

TEST(NodeRecord, HoldsAnyValueThatAHostMakesALiteralOf) {
  const Range range("a", 1, 2, 1, 3);
  for (const Value& value : {Value("text"), Value(2.5), Value(true), Value(false), Value::nil(),
                             Value::arrayLiteral({1}), Value::uninitialized()}) {
    const Expression literal = Literal{.range = range, .value = value};
    EXPECT_EQ(literal.as<Literal>()->value.description(), value.description());
    EXPECT_EQ(literal.node<Literal>().value().kind(), value.kind());
    EXPECT_EQ(literal.node<Literal>().number() != nullptr, value.number() != nullptr);
  }
}

TEST(NodeRecord, KeepsAnIfWhoseConditionAHostHasTakenAway) {
  If record(Range("a", 1, 1), Literal{.range = Range("a", 1, 4), .value = true}, Statements());
  record.mainBranch.condition.reset();
  const Statement statement = record;
  EXPECT_FALSE(statement.as<If>()->mainBranch.condition);
}

TEST(NodeRecordDeath, IsInOneFile) {
  const auto inTwoFiles = [](std::string_view source, std::size_t index) {
    std::vector<Token> tokens = programTokens(source);
    tokens.at(index).range.file = "other";
    statementsOf(tokens);
  };
  const char* message = "fatal: ";
  EXPECT_DEATH(inTwoFiles("a + b", 2), message);
  EXPECT_DEATH(inTwoFiles("a && b", 2), message);
  EXPECT_DEATH(inTwoFiles("a.b", 2), message);
  EXPECT_DEATH(inTwoFiles("f(1)", 3), message);
  EXPECT_DEATH(inTwoFiles("var a = b", 3), message);
  EXPECT_DEATH(inTwoFiles("return b", 1), message);
}

/// What the memory of trees is made of. A template has some four bytes of code for each node, of which it may take
/// twelve times as many.
TEST(NodeRecord, TakesFewBytes) {
  if (sizeof(void*) != 8) GTEST_SKIP();
  EXPECT_EQ(sizeof(NodeOf<Variable>), 40u);
  EXPECT_EQ(sizeof(NodeOf<Literal>), 24u);
  EXPECT_EQ(sizeof(NodeOf<StringExpression>), 32u);
  EXPECT_EQ(sizeof(NodeOf<Binary>), 32u);
  EXPECT_EQ(sizeof(NodeOf<Member>), 40u);
  EXPECT_EQ(sizeof(NodeOf<Subscript>), 40u);
  EXPECT_EQ(sizeof(NodeOf<Call>), 32u);
  EXPECT_EQ(sizeof(NodeOf<Assignment>), 48u);
  EXPECT_EQ(sizeof(NodeOf<ExpressionBlock>), 24u);
  EXPECT_EQ(sizeof(NodeOf<Verbatim>), 24u);
  EXPECT_EQ(sizeof(NodeOf<If>), 24u);
  EXPECT_EQ(sizeof(NodeOf<For>), 48u);
}

}  // namespace
}  // namespace velto
