// The depths that the resolver writes, as rows: a program, and each entry as "name@line:column=depth".
#include "Velto/Interpreter/Resolver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <typeinfo>

#include "tests/support/StackThread.h"
#include "tests/support/TestHost.h"

namespace velto {
namespace {

using testing::ElementsAre;

/// Collects the nodes that can have an entry, in the order of the source.
class EntryCollector final : public StatementVisitor, public ExpressionVisitor {
 public:
  explicit EntryCollector(const Interpreter& interpreter) : interpreter_(interpreter) {}

  std::string collect(const Statements& statements) {
    visit(statements);
    std::string text;
    for (const std::string& entry : entries_) text += (text.empty() ? "" : " ") + entry;
    return text;
  }

 private:
  void visit(const Statements& statements) {
    for (const Statement& statement : statements) statement.accept(*this);
  }
  void visit(const IfBranch& branch) {
    if (branch.condition) branch.condition->accept(*this);
    visit(branch.statements);
  }
  void note(const Token& name, const Uuid& id) {
    const Local* local = interpreter_.locals.find(id);
    if (!local) return;
    entries_.push_back(std::string(name.lexeme.view()) + "@" + std::to_string(name.range.startColumn) + "=" +
                       std::to_string(local->depth));
  }

  void visitBreak(const Break&) override {}
  void visitCase(const Case& node) override {
    if (const auto* pattern = std::get_if<Expression>(&node.pattern)) pattern->accept(*this);
    visit(node.body);
  }
  void visitContinue(const Continue&) override {}
  void visitExpressionBlock(const ExpressionBlock& node) override { node.expression.accept(*this); }
  void visitExpressionStatement(const ExpressionStatement& node) override { node.expression.accept(*this); }
  void visitFor(const For& node) override {
    node.sequence.accept(*this);
    visit(node.body);
  }
  void visitFunctionDeclaration(const FunctionDeclaration& node) override { visit(node.body); }
  void visitIf(const If& node) override {
    visit(node.mainBranch);
    for (const IfBranch& branch : node.elseIfBranches) visit(branch);
    if (node.elseBranch) visit(*node.elseBranch);
  }
  void visitInclude(const Include& node) override { node.file.accept(*this); }
  void visitReturn(const Return& node) override {
    if (node.value) node.value->accept(*this);
  }
  void visitSwitch(const Switch& node) override {
    node.expr.accept(*this);
    for (const Case& case_ : node.cases) visitCase(case_);
    visit(node.defaultBody);
  }
  void visitVariableDeclaration(const VariableDeclaration& node) override {
    if (node.initializer) node.initializer->accept(*this);
  }
  void visitVerbatim(const Verbatim&) override {}
  void visitWhile(const While& node) override {
    node.condition.accept(*this);
    visit(node.body);
  }
  void visitArrayLiteral(const ArrayLiteral& node) override {
    for (const Expression& element : node.elements) element.accept(*this);
  }
  void visitAssignment(const Assignment& node) override {
    note(node.name, node.id);
    node.value.accept(*this);
  }
  void visitBinary(const Binary& node) override {
    node.left.accept(*this);
    node.right.accept(*this);
  }
  void visitCall(const Call& node) override {
    node.callee.accept(*this);
    for (const Call::Argument& argument : node.arguments) argument.value.accept(*this);
  }
  void visitDictionaryLiteral(const DictionaryLiteral& node) override {
    for (const auto& [key, value] : node.elements) {
      key.accept(*this);
      value.accept(*this);
    }
  }
  void visitGrouping(const Grouping& node) override { node.expression.accept(*this); }
  void visitLiteral(const Literal&) override {}
  void visitLogical(const Logical& node) override {
    node.left.accept(*this);
    node.right.accept(*this);
  }
  void visitMember(const Member& node) override { node.object.accept(*this); }
  void visitTuple(const Tuple& node) override { note(node.names.back(), node.id); }
  void visitTypeCheck(const TypeCheck& node) override { node.instance.accept(*this); }
  void visitStringExpression(const StringExpression& node) override {
    for (const StringExpression::Interpolation& interpolation : node.interpolations) interpolation.value.accept(*this);
  }
  void visitSubscript(const Subscript& node) override {
    node.subscriptee.accept(*this);
    node.index.accept(*this);
  }
  void visitUnary(const Unary& node) override { node.right.accept(*this); }
  void visitVariable(const Variable& node) override { note(node.name, node.id); }

  const Interpreter& interpreter_;
  std::vector<std::string> entries_;
};

struct Resolution {
  std::string entries;
  std::vector<std::string> messages;
  bool hadError;
};

Resolution resolve(const char* program, Scanner::Mode mode = Scanner::Mode::program) {
  const test::TestHost host;
  Scanner scanner(program, mode, host.logger, "f");
  Unpacker unpacker(scanner.scanTokens(), host.logger);
  Parser parser(unpacker.unpack(), host.logger);
  const Statements statements = parser.parse();
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Resolver resolver(interpreter);
  resolver.resolve(statements);
  return {EntryCollector(interpreter).collect(statements), host.messages(), resolver.hadError()};
}

struct Row {
  const char* program;
  const char* entries;
};

class ResolverTable : public testing::TestWithParam<Row> {};

TEST_P(ResolverTable, WritesTheDepths) {
  const Resolution resolution = resolve(GetParam().program);
  EXPECT_EQ(resolution.entries, GetParam().entries);
  EXPECT_FALSE(resolution.hadError);
}

INSTANTIATE_TEST_SUITE_P(
    All, ResolverTable,
    testing::Values(  //
        Row{"", ""}, Row{"var a a", "a@7=0"}, Row{"a", ""}, Row{"a = 1", ""}, Row{"var a a = 1", "a@7=0"},
        Row{"var a func f() a = a end", "a@16=1 a@20=1"},
        Row{"var a = 1 func f() return a end if true var a = 2 f() end", "a@27=1 f@51=1"},
        Row{"var a = 1 if true var a = a end", "a@27=1"}, Row{"var a = a", ""}, Row{"if true var a = a end", ""},
        Row{"func f(a) return f(a: a) end", "f@18=1 a@23=0"}, Row{"func f(l a) l a end", "a@15=0"},
        Row{"var d for x in d x for (k, v) in d k v end end", "d@16=0 x@18=1 d@34=2 k@36=1 v@38=1"},
        Row{"var a while a a end", "a@13=0 a@15=1"},
        Row{"var a if a a else if a a else a end", "a@10=0 a@12=1 a@22=0 a@24=1 a@31=1"},
        Row{"var a switch a case a: a default: a end", "a@14=0 a@21=0 a@24=1 a@35=1"},
        Row{"var a switch 1 case is a: a end", "a@27=1"}, Row{"var a include a", ""},
        Row{"var a a.a a[a] a is a -a (a) a || a", "a@7=0 a@11=0 a@13=0 a@16=0 a@24=0 a@27=0 a@30=0 a@35=0"},
        Row{"var a; [a, a]; [a: a]; \"\\(a)\"", "a@9=0 a@12=0 a@17=0 a@20=0 a@27=0"},
        Row{"var a func f() return a + a end", "a@23=1 a@27=1"}));

TEST(Resolver, GoesIntoTemplates) {
  EXPECT_EQ(resolve("<% var a; a; if a %><%= a %><% if a %>-<% end end %>", Scanner::Mode::template_).entries,
            "a@11=0 a@17=0 a@25=1 a@35=1");
}

TEST(Resolver, ReportsTheFirstDuplicateAndStops) {
  const Resolution resolution = resolve("var a var a var b var b a");
  EXPECT_TRUE(resolution.hadError);
  EXPECT_EQ(resolution.entries, "");
  EXPECT_THAT(resolution.messages,
              ElementsAre("f:1:11...1:12: error: Variable with this name already declared in this scope."));
}

TEST(Resolver, TakesParametersAndLocalsAsOneScope) {
  EXPECT_THAT(resolve("func f(a) var a = 1 end").messages,
              ElementsAre("f:1:15...1:16: error: Variable with this name already declared in this scope."));
}

TEST(Resolver, ReportsARepeatedParameterOfAHostsFunction) {
  const test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Resolver resolver(interpreter);
  const auto token = [&](TokenType type, const char* text, Int column) {
    return Token(type, text, Range("f", 1, column));
  };
  const FunctionParameter first{token(TokenType::underscore, "_", 8), token(TokenType::identifier, "a", 10)};
  const FunctionParameter second{token(TokenType::underscore, "_", 13), token(TokenType::identifier, "a", 15)};
  const Token name = token(TokenType::identifier, "f", 6);
  resolver.resolve({FunctionDeclaration{.range = name.range, .name = name, .parameters = {first, second}, .body = {}}});
  EXPECT_THAT(host.messages(),
              ElementsAre("f:1:15...1:15: error: Variable with this name already declared in this scope."));
}

TEST(Resolver, ReportsARepeatedLoopName) {
  EXPECT_THAT(resolve("for (x, x) in d end").messages,
              ElementsAre("f:1:9...1:10: error: Variable with this name already declared in this scope."));
}

TEST(Resolver, LetsATupleTakeTheLastNameFound) {
  const test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Resolver resolver(interpreter);
  const Range range("t", 1, 1);
  const auto name = [&](const char* text) { return Token(TokenType::identifier, text, range); };
  const Expression tuple = Tuple{.range = range, .names = {name("a"), name("b"), name("missing")}};
  const Statement inner = If(range, Literal{.range = range, .value = true}, {ExpressionStatement{tuple}});
  resolver.resolve({VariableDeclaration{.range = range, .name = name("a")},
                    VariableDeclaration{.range = range, .name = name("b")}, inner});
  ASSERT_NE(interpreter.locals.find(tuple.id()), nullptr);
  EXPECT_EQ(interpreter.locals.find(tuple.id())->depth, 1);
}

TEST(Resolver, LeavesAnEntryAsItWasWhereItFindsNoScope) {
  const test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  const Range range("t", 1, 1);
  const Token name(TokenType::identifier, "a", range);
  const Expression variable = Variable{.range = range, .name = name};
  const Statement declaration = VariableDeclaration{.range = range, .name = name};
  const Statement read = ExpressionStatement{variable};
  const auto depthIn = [&](const Statements& surroundings) -> std::optional<Int> {
    Resolver(interpreter).resolve(surroundings);
    const Local* const entry = interpreter.locals.find(variable.id());
    return entry ? std::optional(entry->depth) : std::nullopt;
  };
  EXPECT_EQ(depthIn({read}), std::nullopt);
  EXPECT_EQ(depthIn({declaration, If(range, Literal{.range = range, .value = true}, {read})}), 1);
  EXPECT_EQ(depthIn({read}), 1);
  EXPECT_EQ(depthIn({declaration, read}), 0);
  EXPECT_EQ(depthIn({read}), 0);
}

TEST(Resolver, LosesTheScopeOfAnError) {
  test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Resolver resolver(interpreter);
  const auto parsed = [&](const char* program) {
    Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
    return Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse();
  };
  resolver.resolve(parsed("var a var a"));
  EXPECT_TRUE(resolver.hadError());
  resolver.resolve(parsed("var b var b b"));
  EXPECT_TRUE(interpreter.locals.isEmpty());
  EXPECT_EQ(host.logger->messages.size(), 1u);
}

TEST(Resolver, PassesACaseByThatStandsInNoSwitch) {
  const test::TestHost host;
  Interpreter interpreter(Url("base"), host.logger, host.files);
  Resolver resolver(interpreter);
  const Range range("main", 1, 1);
  const Token name(TokenType::identifier, "a", range);
  const VariableDeclaration declaration{.range = range, .name = name};
  const Statements statements{Case{.range = range, .pattern = name, .body = {declaration, declaration}}};
  resolver.resolve(statements);
  interpreter.interpret(statements);
  EXPECT_FALSE(resolver.hadError() || interpreter.hadError);
  EXPECT_EQ(interpreter.globals().get(String("a")), std::nullopt);
}

/// The range of the message that comes of a program which was parsed with more stack than it is resolved with.
Range exhaustedAt(const std::string& program) {
  test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
  Statements statements;
  test::onStack(256 << 20, [&] {
    statements = Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse();
  });
  EXPECT_TRUE(host.messages().empty());
  Resolver resolver(interpreter);
  test::onStack(160 * 1024, [&] { resolver.resolve(statements); });
  EXPECT_TRUE(resolver.hadError());
  if (host.logger->messages.size() != 1) return Range("", 0, 0);
  EXPECT_EQ(host.logger->messages[0].message, "Stack exhausted.");
  return host.logger->messages[0].range();
}

TEST(Resolver, ReportsWhatWasMadeWithMoreStack) {
  std::string additions = "a";
  std::string opened;
  std::string closed;
  for (int count = 0; count < 20'000; ++count) {
    additions += "+a";
    opened += "func f() ";
    closed += "end ";
  }
  EXPECT_EQ(exhaustedAt(additions).startColumn, 1);
  EXPECT_EQ(exhaustedAt(opened + closed).startColumn % 9, 6);  // a name
}

TEST(Resolver, GoesByTheStackOfTheThreadThatResolves) {
  const test::TestHost host;
  Interpreter interpreter(std::nullopt, host.logger, host.files);
  Resolver resolver(interpreter);
  Scanner scanner("var a if true a end", Scanner::Mode::program, host.logger, "main");
  const Statements statements = Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse();
  test::onStack(160 * 1024, [&] { resolver.resolve(statements); });
  EXPECT_THAT(host.messages(), ElementsAre());
  EXPECT_EQ(interpreter.locals.size(), 1u);
}

/// Throws at every message.
template <typename Thrown>
struct ThrowingLogger final : Logger {
  using Logger::report;
  void report(const Message&) override { throw Thrown(); }
};

template <typename Thrown>
void reportDuplicates() {
  const auto logger = std::make_shared<ThrowingLogger<Thrown>>();
  const test::TestHost host;
  Interpreter interpreter(std::nullopt, logger, host.files);
  const Token name(TokenType::identifier, "a", Range("main", 1, 1));
  const VariableDeclaration declaration{.range = name.range, .name = name};
  Resolver(interpreter).resolve({declaration, declaration});
}

TEST(ResolverDeathTest, StopsAtAnythingElseThatALoggerThrows) {
  EXPECT_THROW(reportDuplicates<std::bad_alloc>(), std::bad_alloc);
  EXPECT_DEATH(reportDuplicates<std::bad_cast>(), "fatal: Unknown exception std::bad_cast");
  EXPECT_DEATH(reportDuplicates<int>(), "fatal: Unknown exception of a foreign type");
}

}  // namespace
}  // namespace velto
