// What all nodes have in common: identities, visits, copies and their end.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/unit/Parser/SmallStack.h"
#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

Expression onlyExpression(std::string_view source) {
  const Statements statements = Parser(programTokens(source), std::make_shared<ArrayLogger>()).parse();
  EXPECT_EQ(statements.size(), 1u);
  return statements.at(0).as<ExpressionStatement>()->expression;
}

TEST(Nodes, HaveFreshIdentitiesThatCopiesKeep) {
  const Expression first = onlyExpression("a");
  const Expression second = onlyExpression("a");
  EXPECT_NE(first.id(), second.id());
  const Expression copy = first;
  EXPECT_EQ(copy.id(), first.id());
  const Variable record = *first.as<Variable>();
  EXPECT_EQ(record.id, first.id());
  EXPECT_EQ(Expression(record).id(), first.id());
}

TEST(Nodes, KeepIdentitiesInCopiesOfTheirParents) {
  const Binary binary = *onlyExpression("a + b").as<Binary>();
  const Binary copy = binary;
  EXPECT_EQ(copy.left.id(), binary.left.id());
  EXPECT_EQ(copy.right.id(), binary.right.id());
  EXPECT_NE(copy.left.id(), copy.right.id());
  EXPECT_NE(copy.left.id(), copy.id);
}

TEST(Nodes, AreTheirKindOnly) {
  const Expression sum = onlyExpression("1 + 2");
  EXPECT_TRUE(sum.as<Binary>());
  EXPECT_FALSE(sum.as<Logical>());
  const Statement statement = Break{Token(TokenType::break_, "break", Range("", 1, 1, 1, 6))};
  EXPECT_TRUE(statement.as<Break>());
  EXPECT_FALSE(statement.as<Continue>());
  EXPECT_EQ(statement.range(), Range("", 1, 1, 1, 6));
}

TEST(Nodes, LeaveAnUnlabelledArgumentWithoutToken) {
  const Expression expression = onlyExpression("f(1, x: 2)");
  const auto call = expression.as<Call>();
  EXPECT_FALSE(call->arguments[0].label);
  EXPECT_EQ(call->arguments[1].label->lexeme, "x");
}

TEST(Nodes, KeepTokensWithTheirRanges) {
  const Expression expression = onlyExpression("a . b");
  EXPECT_EQ(text(expression.as<Member>()->dot.range), "1:3-1:4");
  EXPECT_EQ(text(expression.as<Member>()->member.range), "1:5-1:6");
}

TEST(Nodes, MakeAnIfOfConditionAndStatements) {
  const If node(Range("", 1, 1), onlyExpression("a"), Statements());
  EXPECT_TRUE(node.mainBranch.condition);
  EXPECT_TRUE(node.elseIfBranches.empty());
  EXPECT_FALSE(node.elseBranch);
}

TEST(Nodes, LetPassWhatAVisitThrows) {
  struct Failing final : ExpressionVisitor {
    void visitArrayLiteral(const ArrayLiteral&) override {}
    void visitAssignment(const Assignment&) override {}
    void visitBinary(const Binary&) override {}
    void visitCall(const Call&) override {}
    void visitDictionaryLiteral(const DictionaryLiteral&) override {}
    void visitGrouping(const Grouping&) override {}
    void visitLiteral(const Literal&) override {}
    void visitLogical(const Logical&) override {}
    void visitMember(const Member&) override {}
    void visitTuple(const Tuple&) override {}
    void visitTypeCheck(const TypeCheck&) override {}
    void visitStringExpression(const StringExpression&) override {}
    void visitSubscript(const Subscript&) override {}
    void visitUnary(const Unary&) override {}
    void visitVariable(const Variable&) override { throw std::logic_error("variable"); }
  };
  Failing visitor;
  EXPECT_THROW(onlyExpression("a").accept(visitor), std::logic_error);
  EXPECT_NO_THROW(onlyExpression("1").accept(visitor));
}

TEST(Nodes, AreFreedHoweverDeepTheyAre) {
  for (const char* link : {" + 1", ".b", "[0]", "()", " is T", " && x"}) {
    const auto logger = std::make_shared<ArrayLogger>();
    Statements statements = Parser(programTokens("a" + repeated(link, 50'000)), logger).parse();
    EXPECT_EQ(statements.size(), 1u);
    EXPECT_TRUE(logger->messages.empty());
    onSmallStack([&] { statements.clear(); });
  }
}

TEST(Nodes, AreFreedWhenTheirChainFails) {
  const std::vector<Token> tokens = programTokens("a" + repeated("+1", 50'000) + "+)");
  onSmallStack([&] { EXPECT_EQ(parsed(tokens), "! 1:100003-1:100004 Expected expression."); });
}

}  // namespace
}  // namespace velto
