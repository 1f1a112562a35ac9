// The interpreter as a host holds it.
#include "Velto/Interpreter/Interpreter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <new>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Velto/Interpreter/IntegerConversion.h"
#include "tests/reliability/Sanitizers.h"
#include "tests/support/BareFileSystem.h"
#include "tests/support/Fiber.h"
#include "tests/support/StackThread.h"
#include "tests/support/TestHost.h"

namespace velto {
namespace {

using test::onStack;
using test::TestHost;
using testing::ElementsAre;

class InterpreterTest : public testing::Test {
 protected:
  Statements parsed(const std::string& program) const {
    Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
    Unpacker unpacker(scanner.scanTokens(), host.logger);
    return Parser(unpacker.unpack(), host.logger).parse();
  }

  void interpret(const std::string& program) {
    lists.push_back(parsed(program));
    interpreter.interpret(lists.back());
  }

  TestHost host;
  std::vector<Statements> lists;
  Interpreter interpreter{Url("base"), host.logger, host.files};
};

TEST_F(InterpreterTest, LoadsTheBuiltInLibrariesInOrder) {
  ASSERT_EQ(interpreter.libraries().size(), 3u);
  EXPECT_NE(dynamic_cast<JSONLibrary*>(interpreter.libraries()[0].get()), nullptr);
  EXPECT_NE(dynamic_cast<VeltoLibrary*>(interpreter.libraries()[1].get()), nullptr);
  EXPECT_NE(dynamic_cast<OSLibrary*>(interpreter.libraries()[2].get()), nullptr);
  for (const char* name : {"print", "execute", "process", "makeUUID", "copy", "mkdir", "loadJSON"}) {
    const std::optional<Value> function = interpreter.globals().get(name);
    ASSERT_TRUE(function && function->callable()) << name;
    EXPECT_EQ(function->callable()->name(), name);
  }
}

TEST_F(InterpreterTest, DefinesTheBuiltInFunctionsInTheOrderOfTheirTables) {
  std::vector<std::string> names;
  for (const Bindings::Binding& binding : interpreter.globals().values.bindings()) names.emplace_back(binding.name);
  EXPECT_THAT(names, ElementsAre("loadJSON", "print", "execute", "process", "makeUUID", "copy", "mkdir"));
}

TEST_F(InterpreterTest, LibrariesReplaceWhatHasTheNamesOfTheirFunctions) {
  for (const char* name : {"print", "execute", "process", "makeUUID", "copy", "mkdir", "loadJSON"}) {
    interpreter.globals().values.set(name, "taken");
  }
  interpreter.load(std::make_shared<VeltoLibrary>());
  interpreter.load(std::make_shared<OSLibrary>());
  interpreter.load(std::make_shared<JSONLibrary>());
  for (const char* name : {"print", "execute", "process", "makeUUID", "copy", "mkdir", "loadJSON"}) {
    ASSERT_TRUE(interpreter.globals().values.find(name)->callable()) << name;
    EXPECT_EQ(interpreter.globals().values.find(name)->callable()->name(), name);
  }
  EXPECT_TRUE(host.logger->messages.empty());
  EXPECT_FALSE(interpreter.hadError);
}

TEST_F(InterpreterTest, ALibraryIsTheLastOfTheLibrariesWhenItIsLoaded) {
  struct Looking final : Library {
    void load(Interpreter& interpreter) override {
      count = interpreter.libraries().size();
      isLast = interpreter.libraries().back().get() == this;
    }
    std::size_t count = 0;
    bool isLast = false;
  };
  const auto library = std::make_shared<Looking>();
  interpreter.load(library);
  EXPECT_EQ(library->count, 4u);
  EXPECT_TRUE(library->isLast);
}

TEST_F(InterpreterTest, GivesTheLabelsOfTheBuiltInFunctions) {
  const auto describe = [&](const char* name) {
    return interpreter.globals().get(name)->callable()->describe(std::vector<Value>{"x", "y"});
  };
  EXPECT_EQ(describe("print"), "print(x)");
  EXPECT_EQ(describe("execute"), "execute(x)");
  EXPECT_EQ(describe("process"), "process(x, into: y)");
  EXPECT_EQ(describe("makeUUID"), "makeUUID()");
  EXPECT_EQ(describe("copy"), "copy(from: x, to: y)");
  EXPECT_EQ(describe("mkdir"), "mkdir(x)");
  EXPECT_EQ(describe("loadJSON"), "loadJSON(x)");
}

/// Records of a host that stand for others, which are visited then.
struct VisitedExpression {
  Uuid id{};
  Range range;
  Expression original;
  void accept(ExpressionVisitor& visitor) const { original.accept(visitor); }
};

struct VisitedStatement {
  Range range;
  Statement original;
  void accept(StatementVisitor& visitor) const { original.accept(visitor); }
};

TEST_F(InterpreterTest, VisitsGiveTheSameAsTheWayWithoutThem) {
  interpret("var a = 5 var list = [1, 2] var words = [\"k\": \"hello you\"] func twice(_ x) return x * 2 end");
  for (const char* source : {"[a, a]",
                             "a = 6",
                             "a + 1",
                             "twice(a)",
                             "[a: 1, \"b\": 2]",
                             "(a)",
                             "12.5",
                             "true && false",
                             "list.count",
                             "a is X",
                             "\"text\"",
                             "\"\\(a) and \\(list)\"",
                             "list[1]",
                             "words[\"k\"]",
                             "words[\"k\"][0]",
                             "words[\"k\"].snakeCased()",
                             "-a",
                             "!true",
                             "a",
                             "missing",
                             "list[7]",
                             "a.b",
                             "a()"}) {
    Scanner scanner(source, Scanner::Mode::program, host.logger, "main");
    Parser parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger);
    const Expression expression = parser.parse().at(0).as<ExpressionStatement>()->expression;
    const auto outcome = [&](const Statement& statement) {
      host.files->files.clear();
      host.logger->messages.clear();
      interpreter.interpret({statement});
      FileSystem::flush();
      return std::pair(host.output(), host.messages());
    };
    const Statement plain = ExpressionBlock{expression.range(), expression};
    const auto expected = outcome(plain);
    EXPECT_FALSE(expected.first.empty() && expected.second.empty()) << source;
    const Expression visited = VisitedExpression{.range = expression.range(), .original = expression};
    EXPECT_EQ(outcome(ExpressionBlock{expression.range(), visited}), expected) << source;
    EXPECT_EQ(outcome(VisitedStatement{expression.range(), plain}), expected) << source;
  }
}

TEST_F(InterpreterTest, ReadsTheNamesOfATupleThatStandsForAnExpression) {
  interpret("var a = 5 var b = \"x\"");
  const Range range("main", 1, 1);
  const auto name = [&](const char* text) { return Token(TokenType::identifier, text, range); };
  const Expression tuple = Tuple{.range = range, .names = {name("a"), name("b")}};
  interpreter.interpret({ExpressionBlock{range, tuple}});
  interpreter.interpret({ExpressionBlock{range, VisitedExpression{.range = range, .original = tuple}}});
  FileSystem::flush();
  EXPECT_EQ(host.output(), "[5, x][5, x]");
}

TEST_F(InterpreterTest, EvaluatesAnyExpressionThatIsCalled) {
  const Range range("main", 1, 1);
  const auto number = [&](double value) { return Literal{.range = range, .value = value}; };
  const auto token = [&](TokenType type) { return Token(type, usualLexeme(type), range); };
  const auto call = [&](Token operator_) {
    const Binary callee{.range = range, .left = number(1), .operator_ = operator_, .right = number(2)};
    const Call node{.range = range, .callee = callee, .paren = token(TokenType::leftParen), .arguments = {}};
    host.logger->messages.clear();
    interpreter.interpret({ExpressionStatement{node}});
    return host.messages();
  };
  EXPECT_THAT(call(token(TokenType::plus)), ElementsAre("main:1:1...1:1: error: Can only call functions and classes."));
  EXPECT_THAT(call(token(TokenType::dot)), ElementsAre("main:1:1...1:1: error: Invalid binary operator."));
}

TEST_F(InterpreterTest, CalculatesWithWhatAnAssignmentGives) {
  const Range range("main", 1, 1);
  const Assignment assignment{
      .range = range, .name = Token(TokenType::identifier, "a", range), .value = Literal{.range = range, .value = 5.0}};
  interpreter.locals.set(assignment.id, 0);
  const Binary sum{.range = range,
                   .left = assignment,
                   .operator_ = Token(TokenType::plus, "+", range),
                   .right = Literal{.range = range, .value = 2.0}};
  for (int time = 0; time < 2; ++time) {
    interpreter.globals().define(assignment.name.lexeme, 1);
    interpreter.interpret({ExpressionBlock{.range = range, .expression = sum}});
  }
  EXPECT_EQ(host.output(), "77");
}

TEST_F(InterpreterTest, VisitsRunEveryKindOfStatement) {
  const std::string program =
      "var a = 0 while a < 9 a = a + 1 if a == 2 continue end if a == 4 break end print(a) end "
      "for x in [1, 2] switch x case 1: print(\"one\") default: print(\"more\") end end "
      "func f() return 7 end print(f()) for (k, v) in [\"k\": 1] print(k) end";
  interpret(program);
  FileSystem::flush();
  const std::string expected = host.output();
  EXPECT_EQ(expected, "13onemore7k");
  Statements visited;
  for (const Statement& statement : lists.back()) {
    visited.push_back(VisitedStatement{statement.range(), statement});
  }
  Interpreter other(Url("base"), host.logger, host.files);
  other.interpret(visited);
  EXPECT_EQ(host.output(), expected + expected);
}

TEST_F(InterpreterTest, VisitsRunStatementsByThemselves) {
  const Range range("main", 1, 1, 1, 2);
  const auto visited = [&](const Statement& statement) -> Statement { return VisitedStatement{range, statement}; };
  const Token break_(TokenType::break_, "break", range);
  const Token continue_(TokenType::continue_, "continue", range);
  interpreter.interpret({visited(Verbatim{range, "text"}), visited(Case{range, break_, {Verbatim{range, "never"}}}),
                         visited(Break{break_}), visited(Continue{continue_})});
  EXPECT_EQ(host.output(), "text");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:1...1:2: error: Cannot break from outside a loop.",
                                           "main:1:1...1:2: error: Cannot continue from outside a loop."));
}

/// Tokens far to the right make nodes that have their records with them.
TEST_F(InterpreterTest, RunsNodesThatAreSpelledOutLikeAnyOthers) {
  constexpr Int farRight = 1'000'000;
  const std::string program =
      "func f(_ a, with b) if a < b && !(b == -1) return [\"k\": \"\\(a) of \\(b)\"] else if a == 7 return \"seven\" "
      "else a = a + b end return a end print(f(1, with: 2)) print(f(7, with: 2)) print(f(9, with: 2)) "
      "for (k, v) in [\"a\": [1, 2]] for i in v if i == 1 continue end print(\"\\(k)\\(i)\") break end end "
      "var x var y = 0 while y < 2 y = y + 1; x = y end print(x) "
      "switch x case is Number: print(\"number\") case \"two\": print(2) break default: print(\"other\") end "
      "print(\"snake case\".upperCamelCased()) var t = \"\" t = \"\\(t)a\" t = \"\\(t)b\" print(t[0...1]) print(nil == "
      "false || true) "
      "f(1, 2)";
  interpret(program);
  FileSystem::flush();
  const std::string expected = host.output();
  EXPECT_EQ(expected, "[k: 1 of 2]seven11a22numberSnakeCaseabtrue");
  Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
  std::vector<Token> tokens = Unpacker(scanner.scanTokens(), host.logger).unpack();
  for (Token& token : tokens) {
    token.range.startColumn += farRight;
    token.range.endColumn += farRight;
  }
  Interpreter other(Url("base"), host.logger, host.files);
  const Statements spelledOut = Parser(std::move(tokens), host.logger).parse();
  Resolver(other).resolve(spelledOut);
  other.interpret(spelledOut);
  EXPECT_EQ(host.output(), expected + expected);
  const auto& messages = host.logger->messages;
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].message, messages[1].message);
  EXPECT_EQ(messages[0].range().startColumn + farRight, messages[1].range().startColumn);
}

TEST_F(InterpreterTest, TakesNoPieceUpToTheLargestInteger) {
  interpreter.globals().define("all", makeRef<CountableClosedRange>(0, std::numeric_limits<Int>::max()));
  interpret("print(\"text\"[all])");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:13...1:14: error: Range out of bounds."));
}

TEST_F(InterpreterTest, ComparesAnObjectWithoutEqualsToNilAlone) {
  interpreter.globals().define("point", asObject(CGPoint{1, 2}));
  interpret("print(\"\\(point == nil) \\(nil == point) \\(point != nil) \\(nil != point)\") point == 1");
  EXPECT_EQ(host.output(), "false false true true");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:80...1:82: error: Objects must implement 'equals' function."));
}

TEST_F(InterpreterTest, AsksAnObjectWhetherItEqualsAnArray) {
  struct Agreeable final : Object {
    std::optional<Value> get(const String& member) const override {
      if (member != "equals") return std::nullopt;
      return makeRef<Function2>("equals", [](const Value&, const Value&) { return Value(true); });
    }
    String objectDescription() const override { return "agreeable"; }
  };
  interpreter.globals().define("thing", makeRef<Agreeable>());
  interpret("print(\"\\(thing == [1]) \\([1] == thing)\")");
  EXPECT_EQ(host.output(), "true false");
}

TEST_F(InterpreterTest, LeavesScopesAloneThatAHostHoldsOrWatches) {
  Ref<Environment> held;
  WeakRef<Environment> watched;
  interpreter.globals().define("hold", makeRef<Function0>("hold", [&] {
                                 held = interpreter.stack()[2];
                                 return Value::nil();
                               }));
  interpreter.globals().define("watch", makeRef<Function0>("watch", [&] {
                                 watched = WeakRef<Environment>(interpreter.stack()[2].get());
                                 return Value::nil();
                               }));
  interpret(
      "var last = nil for i in 0..<300 func f() return i end last = f if i == 7 hold() end if i == 9 watch() end end");
  EXPECT_THAT(host.messages(), testing::IsEmpty());
  ASSERT_NE(held.get(), nullptr);
  EXPECT_TRUE(held->values.contains("f"));
  ASSERT_NE(watched.get(), nullptr);
  EXPECT_TRUE(watched.get()->values.contains("f"));
}

TEST_F(InterpreterTest, RefusesTwoParametersOfOneName) {
  const auto range = [](Int column) { return Range("main", 1, column); };
  const auto parameter = [&](Int column) {
    const Token name(TokenType::identifier, "a", range(column));
    return FunctionParameter{.label = Token(TokenType::underscore, "_", range(column)), .name = name};
  };
  const FunctionDeclaration declaration{.range = range(1),
                                        .name = Token(TokenType::identifier, "f", range(1)),
                                        .parameters = {parameter(2), parameter(3)},
                                        .body = {}};
  interpreter.interpret({declaration});
  interpret("f(1, 2)");
  ASSERT_FALSE(host.messages().empty());
  EXPECT_EQ(host.messages().front(), "main:1:3...1:3: error: Variable with this name already declared in this scope.");
  EXPECT_EQ(interpreter.stack().size(), 1u);
}

/// Does something at the first message.
class BusyLogger final : public Logger {
 public:
  using Logger::report;
  void report(const Message& message) override {
    messages.push_back(message);
    if (const auto todo = std::exchange(work, nullptr)) todo();
  }

  std::function<void()> work;
  std::vector<Message> messages;
};

TEST_F(InterpreterTest, CallsFunctionsWhileTwoParametersOfOneNameAreReported) {
  const auto logger = std::make_shared<BusyLogger>();
  Interpreter busy(Url("base"), logger, host.files);
  const Statements inner = parsed("func g(_ a, _ b) return a + b end print(g(1, 2))");
  logger->work = [&] { busy.interpret(inner); };
  FunctionDeclaration declaration = *parsed("func f(_ a, _ b) end")[0].as<FunctionDeclaration>();
  declaration.parameters[1].name = declaration.parameters[0].name;
  const Statements call = parsed("f(3, 4)");
  busy.interpret({declaration});
  busy.interpret(call);
  FileSystem::flush();
  EXPECT_EQ(host.output(), "3");
  ASSERT_EQ(logger->messages.size(), 2u);
  EXPECT_EQ(logger->messages[0].message, "Variable with this name already declared in this scope.");
  EXPECT_EQ(busy.stack().size(), 1u);
}

/// Each call but the first finds its names where they stood, unless they share a bit of the filter, as some of these
/// do.
TEST_F(InterpreterTest, NamesItsParametersWhateverTheirNamesAre) {
  std::string program;
  for (int number = 0; number < 100; ++number) {
    const std::string other = "n" + std::to_string(number);
    const std::string name = "f" + std::to_string(number);
    program += "func " + name + "(_ n, _ " + other + "x, _ " + other + ") return \"\\(n)\\(" + other + "x)\\(" + other +
               ")\" end\n";
    program += "for i in 0..<3 print(" + name + "(i, \"a\", true)) end\n";
  }
  interpret(program);
  FileSystem::flush();
  std::string expected;
  for (int number = 0; number < 100; ++number) expected += "0atrue1atrue2atrue";
  EXPECT_EQ(host.output(), expected);
  EXPECT_THAT(host.messages(), testing::IsEmpty());
}

TEST_F(InterpreterTest, CallsAFunctionWithFewerOrMoreArgumentsThanParameters) {
  interpret(
      "func none() return 0 end func one(_ a) return a end var b = \"b\" func two(_ a, _ b) return \"\\(a)\\(b)\" end");
  const ReportError reportError([](const String& message) { throw std::runtime_error(std::string(message)); });
  const auto call = [&](const char* name, const std::vector<Value>& arguments) {
    return interpreter.globals().find(name)->callable()->call(interpreter, arguments, reportError);
  };
  for (int round = 0; round < 3; ++round) {
    for (const std::vector<Value>& arguments : std::vector<std::vector<Value>>{{}, {1}, {1, "2"}, {1, "2", 3}}) {
      EXPECT_EQ(call("none", arguments), Value(0));
      if (!arguments.empty()) {
        EXPECT_EQ(call("one", arguments), Value(1));
        EXPECT_EQ(call("two", arguments), Value(arguments.size() == 1 ? "1b" : "12"));
      }
    }
  }
  EXPECT_EQ(interpreter.stack().size(), 1u);
}

TEST_F(InterpreterTest, ReportsNothingToTheLoggerOfAScopeThatHasLeft) {
  const auto other = std::make_shared<ArrayLogger>();
  interpreter.pushEnvironment(makeRef<Environment>(other));
  interpreter.popEnvironment();
  interpret("if true var a = 1 var a = 2 end");
  EXPECT_THAT(other->messages, testing::IsEmpty());
  EXPECT_THAT(host.messages(),
              ElementsAre("main:1:23...1:24: error: Variable with this name already declared in this scope."));
}

TEST_F(InterpreterTest, FindsAVariableThatAHostHasMoved) {
  // In the third turn `b` stands at another place among the names of its scope.
  interpreter.globals().define("move", makeRef<Function1>("move", [&](const Value& turn) -> Value {
                                 if (turn == Value(2)) {
                                   Bindings& names = interpreter.stack()[1]->values;
                                   names.clear();
                                   names.set("c", 1);
                                   names.set("b", "moved");
                                 }
                                 return nullptr;
                               }));
  interpret("if true var b = \"first\" for turn in 0..<4 move(turn) print(b) b = \"\\(b)+\" end end");
  FileSystem::flush();
  EXPECT_EQ(host.output(), "firstfirst+movedmoved+");
}

TEST_F(InterpreterTest, FindsALoopVariableThatAHostHasMoved) {
  interpreter.globals().define("move", makeRef<Function0>("move", [&] {
                                 Bindings& names = interpreter.stack().end()[-2]->values;
                                 std::vector<std::pair<String, Value>> before = {{"other", 0}};
                                 for (const Bindings::Binding& binding : names.bindings()) {
                                   if (binding.name != "other") before.emplace_back(binding.name, binding.value);
                                 }
                                 names.clear();
                                 for (const auto& [name, value] : before) names.set(name, value);
                                 return Value::nil();
                               }));
  for (const char* sequence : {"0..<3", "3...5", "[6, 7]"}) {
    interpret(std::string("for a in ") + sequence + " move() print(a) end");
  }
  interpret("for (a, b) in [\"k\": 1, \"l\": 2] move() print(a) print(b) end");
  EXPECT_THAT(host.messages(), testing::IsEmpty());
  EXPECT_EQ(host.output(), "01234567k1l2");
}

TEST_F(InterpreterTest, ReportsALoopVariableThatAHostHasRemoved) {
  interpreter.globals().define("remove", makeRef<Function1>("remove", [&](const Value& name) {
                                 interpreter.stack().end()[-2]->values.remove(name.description());
                                 return Value::nil();
                               }));
  interpret("for a in 0..<3 remove(\"a\") end");
  interpret("for a in [[1], [2]] remove(\"a\") end");
  interpret("for (a, b) in [\"k\": 1, \"l\": 2] remove(\"b\") end");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:5...1:6: error: Undefined variable 'a'.",
                                           "main:1:5...1:6: error: Undefined variable 'a'.",
                                           "main:1:9...1:10: error: Undefined variable 'b'."));
  EXPECT_EQ(interpreter.stack().size(), 1u);
}

/// Under the name with that number of parameters at its end, one whose arguments all have the label `l`, and one
/// without labels.
template <std::size_t count>
void defineNatives(Environment& globals) {
  const typename NativeFunction<count>::Closure closure = [](const auto&...) { return Value::nil(); };
  std::array<Label, count> labels;
  labels.fill(Label("l"));
  globals.define("labelledNative" + std::to_string(count), makeRef<NativeFunction<count>>("f", labels, closure));
  globals.define("plainNative" + std::to_string(count), makeRef<NativeFunction<count>>("f", closure));
}

/// The pieces for so many numbers, with commas in between.
std::string listed(std::size_t count, const std::function<std::string(std::size_t)>& piece) {
  std::string all;
  for (std::size_t index = 0; index < count; ++index) all += (index > 0 ? ", " : "") + piece(index);
  return all;
}

TEST_F(InterpreterTest, ChecksTheLabelOfEachArgument) {
  defineNatives<1>(interpreter.globals());
  defineNatives<2>(interpreter.globals());
  defineNatives<3>(interpreter.globals());
  defineNatives<4>(interpreter.globals());
  for (std::size_t count = 1; count <= 4; ++count) {
    const std::string number = std::to_string(count);
    const auto parameter = [](std::size_t index) { return " a" + std::to_string(index); };
    interpret("func labelled" + number + "(" + listed(count, [&](std::size_t i) { return "l" + parameter(i); }) +
              ") end func plain" + number + "(" + listed(count, [&](std::size_t i) { return "_" + parameter(i); }) +
              ") end");
    for (const bool isNative : {false, true}) {
      for (const bool isLabelled : {false, true}) {
        for (std::size_t wrong = 0; wrong <= count; ++wrong) {
          const std::string name = std::string(isLabelled ? "labelled" : "plain") + (isNative ? "Native" : "") + number;
          const std::string call =
              name + "(" + listed(count, [&](std::size_t i) { return isLabelled == (i != wrong) ? "l: 1" : "1"; }) +
              ")";
          host.logger->messages.clear();
          interpret(call);
          if (wrong == count) {
            EXPECT_THAT(host.messages(), testing::IsEmpty()) << call;
          } else {
            ASSERT_EQ(host.logger->messages.size(), 1u) << call;
            EXPECT_EQ(host.logger->messages[0].message,
                      isLabelled ? "Expected argument label 'l'." : "Expected argument label ''.");
          }
        }
      }
    }
  }
}

TEST_F(InterpreterTest, AsksTheConditionOfWhateverBranchHasOne) {
  const Range range("main", 1, 1);
  const auto condition = [&](const Value& value) { return Expression(Literal{.range = range, .value = value}); };
  const auto outcome = [&](std::optional<Expression> first, std::optional<Expression> second,
                           std::optional<Expression> last) {
    If node(range, condition(true), parsed("print(1)"));
    node.mainBranch.condition = std::move(first);
    node.elseIfBranches = {{std::move(second), parsed("print(2)")}};
    node.elseBranch = IfBranch{std::move(last), parsed("print(3)")};
    host.files->files["<1>"].clear();
    host.logger->messages.clear();
    interpreter.interpret({node});
    return host.output() + (host.messages().empty() ? "" : "!");
  };
  const Expression yes = condition(true);
  const Expression no = condition(false);
  const Expression odd = condition(5);
  EXPECT_EQ(outcome(std::nullopt, no, no), "1");
  EXPECT_EQ(outcome(odd, yes, yes), "!");
  EXPECT_EQ(outcome(no, std::nullopt, no), "2");
  EXPECT_EQ(outcome(no, odd, yes), "!");
  EXPECT_EQ(outcome(no, no, no), "");
  EXPECT_EQ(outcome(no, no, yes), "3");
  EXPECT_EQ(outcome(no, no, std::nullopt), "3");
  EXPECT_EQ(outcome(no, no, odd), "!");
}

TEST_F(InterpreterTest, LetsGoOfTheScopesThatAHostHasLeftOnIt) {
  const auto scope = makeRef<Environment>(host.logger);
  {
    Interpreter another;
    another.pushEnvironment(scope);
    EXPECT_EQ(another.pushEnvironment(nullptr).enclosing(), scope.get());
    EXPECT_EQ(scope->holderCount(), 2u);
  }
  EXPECT_EQ(scope->holderCount(), 1u);
}

TEST_F(InterpreterTest, EmptiesItsScopesAtItsEndWhoeverHoldsThem) {
  Ref<Environment> held;
  Ref<Environment> globals;
  Value escaped;
  {
    Interpreter another(Url("base"), host.logger, host.files);
    another.globals().define("hold", makeRef<Function1>("hold", [&](const Value& function) {
                               held = dynamic_cast<const Function&>(*function.callable()).closure();
                               escaped = function;
                               return Value::nil();
                             }));
    another.interpret(
        parsed("func make() var n = 1 func get() return n end hold(get) return get end var got = make()"));
    globals = another.stack().front();
    EXPECT_TRUE(held->values.contains("n"));
    EXPECT_TRUE(globals->values.contains("got"));
  }
  EXPECT_TRUE(held->values.bindings().empty());
  EXPECT_TRUE(globals->values.bindings().empty());
  EXPECT_EQ(dynamic_cast<const Function&>(*escaped.callable()).closure().get(), held.get());
}

TEST_F(InterpreterTest, LetsGoOfTheScopesThatItHasKeptBesideOneThatAHostHolds) {
  Ref<Environment> second;
  WeakRef<Environment> first;
  {
    Interpreter another(Url("base"), host.logger, host.files);
    // Called twice.
    another.globals().define("hold", makeRef<Function1>("hold", [&](const Value& function) {
                               first = WeakRef<Environment>(second.get());
                               second = dynamic_cast<const Function&>(*function.callable()).closure();
                               return Value::nil();
                             }));
    another.interpret(
        parsed("var gets = [] var out = nil func make() var n = 1 func f() return n end "
               "if true func inner() return n end gets = [gets, inner] end out = [f] hold(f) f = nil end "
               "func hide() var held = out out = nil func own() return 1 end end make() hide() make() hide()"));
    EXPECT_NE(first.get(), nullptr);
  }
  EXPECT_THAT(host.messages(), ElementsAre());
  EXPECT_EQ(first.get(), nullptr);
}

TEST_F(InterpreterTest, KeepsWhatItsFunctionsDeclareAfterTheirTreeHasGone) {
  interpreter.interpret(parsed("func sum(_ n) if n > 0 return n + sum(n - 1) end return 0 end"));
  interpret("print(sum(4))");
  EXPECT_EQ(host.output(), "10");
}

TEST_F(InterpreterTest, IsBareAtTheStart) {
  const Interpreter bare;
  EXPECT_EQ(bare.baseURL(), std::nullopt);
  EXPECT_EQ(bare.stack().size(), 1u);
  EXPECT_FALSE(bare.hadError);
  EXPECT_TRUE(bare.locals.isEmpty());
}

TEST_F(InterpreterTest, LetsGoOfWhatIsReturnedFromOutsideAFunction) {
  const Value list = Array(std::vector<Value>{1, 2});
  interpreter.globals().define("list", list);
  const std::uint32_t holders = list.array()->holderCount();
  interpret("return list");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:1...1:7: error: Cannot return from outside a function."));
  EXPECT_EQ(list.array()->holderCount(), holders);
}

TEST_F(InterpreterTest, ResolvesPathsAgainstTheBase) {
  EXPECT_EQ(interpreter.resolve("a").path(), "base/a");
  EXPECT_EQ(interpreter.resolve("/a").path(), "base/a");
  EXPECT_EQ(Interpreter().resolve("/a").path(), "/a");
}

TEST_F(InterpreterTest, PushesAndPopsScopes) {
  Environment& pushed = interpreter.pushEnvironment();
  EXPECT_EQ(pushed.enclosing(), &interpreter.globals());
  EXPECT_EQ(interpreter.stack().size(), 2u);
  interpreter.popEnvironment();
  const auto own = makeRef<Environment>(host.logger);
  EXPECT_EQ(&interpreter.pushEnvironment(own), own.get());
  interpreter.popEnvironment();
  EXPECT_EQ(interpreter.stack().size(), 1u);
}

/// One that is used again would go on looking at the scope around it.
TEST_F(InterpreterTest, NeverUsesAScopeAgainThatAHostHasHeld) {
  Ref<Environment> held(&interpreter.pushEnvironment());
  interpreter.popEnvironment();
  EXPECT_TRUE(interpreter.globals().isObserved());
  interpreter.pushEnvironment(std::move(held));
  interpreter.popEnvironment();
  EXPECT_FALSE(interpreter.globals().isObserved());
}

TEST_F(InterpreterTest, NeverUsesAScopeAgainThatAHostHasMade) {
  interpreter.pushEnvironment(makeRef<Environment>(&interpreter.globals(), host.logger));
  interpreter.pushEnvironment();
  interpreter.popEnvironment();
  EXPECT_TRUE(interpreter.globals().isObserved());
  interpreter.popEnvironment();
  EXPECT_FALSE(interpreter.globals().isObserved());
}

TEST_F(InterpreterTest, LetsTheHostCaptureTheOutput) {
  std::string output;
  interpreter.print = [&](const String& text) { output.append(text.view()); };
  interpret("print(1) print(\"a\")");
  EXPECT_EQ(output, "1a");
  EXPECT_EQ(host.output(), "");
}

TEST_F(InterpreterTest, LeavesAnEmptyListAlone) {
  interpreter.interpret({});
  EXPECT_FALSE(interpreter.hadError);
}

TEST_F(InterpreterTest, NeverClearsHadError) {
  interpret("missing");
  EXPECT_TRUE(interpreter.hadError);
  interpret("print(1)");
  EXPECT_TRUE(interpreter.hadError);
  EXPECT_EQ(host.output(), "1");
}

TEST_F(InterpreterTest, PopsEveryScopeOnTheWayOutOfAFailure) {
  interpret("func f() for i in 0...3 while true if true missing end end end end f()");
  EXPECT_EQ(interpreter.stack().size(), 1u);
  EXPECT_THAT(host.messages(), ElementsAre("main:1:44...1:51: error: Undefined variable 'missing'.",
                                           "main:1:68...1:71: info: f() called here"));
}

TEST_F(InterpreterTest, PutsPrintBackAfterAFailedProcess) {
  std::string output;
  interpreter.print = [&](const String& text) { output.append(text.view()); };
  interpret("process(\"missing\", into: \"/out\")");
  interpret("print(1)");
  EXPECT_EQ(output, "1");
  EXPECT_EQ(host.files->files.at("/out"), "");
  EXPECT_EQ(interpreter.stack().size(), 1u);
}

TEST_F(InterpreterTest, CallsAHostFunctionWithItsArguments) {
  interpreter.globals().define("add", makeRef<Function2>("add", [](const Value& left, const Value& right) {
                                 return *left.number() + *right.number();
                               }));
  interpret("print(add(1, 2))");
  EXPECT_EQ(host.output(), "3");
}

/// Takes more arguments than stand on the stack, all of them labelled but the last.
class SixParameters final : public Callable {
 public:
  String name() const override { return "six"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter&, Arguments arguments, const ReportError& reportError) const override {
    std::string text;
    for (const Value& argument : arguments) text += std::string(argument.description());
    if (text.find("nil") != text.npos) reportError("Nothing is nothing.");
    return String(text);
  }

 private:
  Labels labels_{String("a"), String("b"), String("c"), String("d"), String("e"), std::nullopt};
};

TEST_F(InterpreterTest, CallsAHostFunctionWithManyArguments) {
  interpreter.globals().define("six", makeRef<SixParameters>());
  interpret("print(six(a: 1, b: 2, c: 3, d: 4, e: [5], \"6\"))");
  interpret("six(a: 1, b: 2, c: 3, d: 4, f: 5, 6)");
  interpret("six(a: 1, b: 2, c: 3, d: 4, e: 5, e: 6)");
  interpret("six(a: 1, b: 2, c: 3, d: 4, e: 5)");
  interpret("six(a: 1, b: 2, c: 3, d: 4, e: 5, nil)");
  interpret("six(a: 1, b: 2, c: 3, d: 4, e: missing, nil)");
  FileSystem::flush();
  EXPECT_EQ(host.output(), "1234[5]6");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:29...1:30: error: Expected argument label 'e'.",
                                           "main:1:35...1:36: error: Expected argument label ''.",
                                           "main:1:4...1:5: error: Expected 6 arguments but got 5.",
                                           "main:1:4...1:5: error: Nothing is nothing.",
                                           "main:1:1...1:39: info: six(a: 1, b: 2, c: 3, d: 4, e: 5, nil) called here",
                                           "main:1:32...1:39: error: Undefined variable 'missing'."));
}

TEST_F(InterpreterTest, LetsAHostCallAFunctionOfTheProgram) {
  interpret("func twice(_ x) return x * 2 end");
  const std::optional<Value> twice = interpreter.globals().get("twice");
  const auto throwing = [](const String& message) { throw std::runtime_error(std::string(message.view())); };
  EXPECT_EQ(twice->callable()->call(interpreter, {21}, throwing), Value(42));
  const auto* function = dynamic_cast<const Function*>(twice->callable());
  ASSERT_NE(function, nullptr);
  EXPECT_EQ(function->description(), "func twice(_)");
  EXPECT_EQ(function->closure().get(), &interpreter.globals());
}

TEST_F(InterpreterTest, DescribesFunctions) {
  interpret("func add(a, b x) end func g() end func f(_ a, _ b) end");
  const auto describe = [&](const char* name) {
    return dynamic_cast<const Function*>(interpreter.globals().get(name)->callable())->description();
  };
  EXPECT_EQ(describe("add"), "func add(a:b)");
  EXPECT_EQ(describe("g"), "func g()");
  EXPECT_EQ(describe("f"), "func f(_:_)");
}

TEST_F(InterpreterTest, KeepsATokenThatAFailurePassed) {
  // The break ends the body of f, and stays set while the expression around the call fails.
  interpret("func f() break end f() + missing");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:26...1:33: error: Undefined variable 'missing'."));
  interpret("print(1)");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:26...1:33: error: Undefined variable 'missing'.",
                                           "main:1:10...1:15: error: Cannot break from outside a loop."));
}

TEST_F(InterpreterTest, ReportsExhaustionOfTheStackAndGoesOn) {
  interpret("func f() return f() end f()");
  ASSERT_FALSE(host.logger->messages.empty());
  EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.");
  EXPECT_EQ(host.logger->messages.back().message, "f() called here");
  interpret("print(1)");
  EXPECT_EQ(host.output(), "1");
}

TEST_F(InterpreterTest, ReportsExhaustionOnEveryRoadBackToItself) {
  host.files->files["/base/include"] = "<% include \"include\" %>";
  host.files->files["/base/process"] = "<% process(\"process\", into: \"/out\") %>";
  host.files->files["/base/execute"] = "execute(\"execute\")";
  for (const char* program :
       {"func f(_ x) [1].map(f) end f(1)", "func f(_ x) [1].filter(f) end f(1)",
        "func f(_ a, _ b) [1, 2].sorted(by: f) end f(1, 2)", "func f() return \"\\(f())\" end f()",
        "include \"include\"", "process(\"process\", into: \"/out\")", "execute(\"execute\")"}) {
    host.logger->messages.clear();
    Interpreter another(Url("base"), host.logger, host.files);
    Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
    Parser parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger);
    test::onStack(test::smallStack, [&] { another.interpret(parser.parse()); });
    ASSERT_FALSE(host.logger->messages.empty()) << program;
    EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.") << program;
    EXPECT_TRUE(another.hadError);
    EXPECT_EQ(another.stack().size(), 1u);
  }
}

/// Calls `work` with that many bytes of the stack gone.
[[gnu::noinline]] void below(std::size_t bytes, const std::function<void()>& work) {
  auto* const gone = static_cast<volatile char*>(__builtin_alloca(bytes + 1));
  gone[bytes] = 0;
  work();
}

/// Wherever between two calls the stack ends, that is told at what was to run then.
TEST_F(InterpreterTest, ReportsExhaustionAtTheBranchThatCantRun) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> bodies = {
      {"if 1 < 2 return f() end", {"return f()", "f()"}},
      {"if 1 < 2 end return f()", {"f()"}},
      {"if 1 < 2 if 2 < 3 return f() end end", {"if 2 < 3", "return f()", "f()"}},
      {"g(1, 2, 3, 4, 5) end func g(_ a, _ b, _ c, _ d, _ e) return g(1, 2, 3, 4, 5)", {"g(1, 2, 3, 4, 5)"}}};
  for (const auto& row : bodies) {
    const std::string& body = row.first;
    std::set<Int> expected;
    for (const std::string& place : row.second) expected.insert(static_cast<Int>(body.rfind(place)) + 11);
    const Statements program = parsed("func f()  " + body + " end f()");
    std::set<Int> told;
    test::onStack(test::smallStack, [&] {
      constexpr std::size_t frames = 4096;  // enough for the end to come at each place between two calls
      for (std::size_t gone = 0; gone < 4 * frames && (gone < frames || told != expected); gone += 64) {
        host.logger->messages.clear();
        Interpreter another(Url("base"), host.logger, host.files);
        below(gone, [&] { another.interpret(program); });
        ASSERT_FALSE(host.logger->messages.empty()) << body;
        ASSERT_EQ(host.logger->messages.front().message, "Stack exhausted.") << body;
        told.insert(host.logger->messages.front().range().startColumn);
      }
    });
    EXPECT_EQ(told, expected) << body;
  }
}

TEST_F(InterpreterTest, EndsACallByAHostBeforeTheStackOfItsThread) {
  interpret("func f() return f() end func g() return 1 end");
  const auto unused = [](const String&) { throw std::runtime_error("It is no native function."); };
  const auto called = [&](const char* name) {
    return interpreter.globals().get(String(name))->callable()->call(interpreter, {}, unused);
  };
  test::onStack(test::smallStack, [&] {
    EXPECT_EQ(called("g"), Value(1));
    EXPECT_THROW(called("f"), VeltoError);
    EXPECT_EQ(called("g"), Value(1));
  });
  ASSERT_FALSE(host.logger->messages.empty());
  EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.");
}

TEST_F(InterpreterTest, EndsAFileThatIncludesItselfTwice) {
  host.files->files["/base/twice"] = "(<% include \"twice\" %><% include \"twice\" %>)";
  host.files->files["/base/execute"] = "for i in 0..<2 execute(\"execute\") end";
  for (const char* program : {"include \"twice\"", "execute(\"execute\")"}) {
    host.logger->messages.clear();
    interpret(program);
    EXPECT_EQ(host.logger->messages.at(0).message, "Stack exhausted.");
    EXPECT_EQ(interpreter.stack().size(), 1u);
  }
  // The exhaustion that ended those lists ends none in the next run.
  host.logger->messages.clear();
  host.files->files["/base/failing"] = "<% missing %>";
  interpret("include \"failing\" print(1)");
  EXPECT_THAT(host.messages(), ElementsAre("base/failing:1:4...1:11: error: Undefined variable 'missing'."));
  EXPECT_TRUE(host.output().ends_with('1'));
}

TEST_F(InterpreterTest, GoesOnBehindAFileInWhichAFunctionCallsItself) {
  host.files->files["/base/deep"] = "<% func f() f() end f() %>";
  interpret("include \"deep\" print(1)");
  FileSystem::flush();
  EXPECT_EQ(host.output(), "1");
  EXPECT_EQ(host.logger->messages.at(0).message, "Stack exhausted.");
}

TEST_F(InterpreterTest, GoesOnBehindAFileThatExhaustsTheStackUnlessManyListsRunInsideOneAnother) {
  const auto printedBehind = [&](int files) {
    for (int file = 1; file < files; ++file) {
      const std::string next = std::to_string(file + 1);
      host.files->files["/base/" + std::to_string(file)] = "<% include \"" + next + "\" print(\"<" + next + "\") %>";
    }
    host.files->files["/base/" + std::to_string(files)] = "<% func f() f() end f() print(\"not reached\") %>";
    std::string printed;
    Interpreter another(Url("base"), host.logger, host.files);
    another.print = [&](const String& text) { printed += text.view(); };
    Scanner scanner("include \"1\" print(\"<1\")", Scanner::Mode::program, host.logger, "main");
    const Statements statements = Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse();
    onStack(512 * 1024, [&] { another.interpret(statements); });
    EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.");
    EXPECT_TRUE(another.hadError);
    return printed;
  };
  EXPECT_EQ(printedBehind(3), "<3<2<1");
  EXPECT_EQ(printedBehind(15), "<15<14<13<12<11<10<9<8<7<6<5<4<3<2<1");
  EXPECT_EQ(printedBehind(16), "");
}

TEST_F(InterpreterTest, LetsAFailurePassToTheOutermostOfManyLists) {
  // A native function runs a list of its own, which calls it again.
  int passed = 0;
  interpreter.globals().define("again", makeRef<Function0>("again", [&]() -> Value {
                                 try {
                                   interpreter.interpret(lists.back());
                                 } catch (const VeltoError&) {
                                   ++passed;
                                   throw;
                                 }
                                 return nullptr;
                               }));
  interpret("again()");
  EXPECT_GT(passed, 16);
  EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.");
  EXPECT_TRUE(interpreter.hadError);
}

TEST_F(InterpreterTest, IsGoodForTheThreadThatRuns) {
  onStack(512 * 1024, [&] { interpret("func f(_ n) if n > 0 f(n - 1) end end f(20) print(1 + 1)"); });
  FileSystem::flush();
  EXPECT_EQ(host.output(), "2");
  onStack(512 * 1024, [&] { interpret("func g() g() end g()"); });
  EXPECT_EQ(host.logger->messages.at(0).message, "Stack exhausted.");
}

/// An object of a host's that gives a function of the program as its member.
class Giver final : public Object {
 public:
  explicit Giver(Interpreter& interpreter) : interpreter_(interpreter) {}
  std::optional<Value> get(const String& name) const override { return interpreter_.globals().get(name); }
  String objectDescription() const override { return "giver"; }

 private:
  Interpreter& interpreter_;
};

TEST_F(InterpreterTest, CallsAFunctionThatIsAMember) {
  interpreter.globals().define("o", makeRef<Giver>(interpreter));
  interpret("func f(_ n, b m) return n + m end print(o.f(1, b: 2)) o.f(1)");
  EXPECT_EQ(host.output(), "3");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:58...1:59: error: Expected 2 arguments but got 1."));
}

TEST_F(InterpreterTest, EndsWhatAHostCallsOnAStackWithoutBounds) {
  if (test::isSanitized) GTEST_SKIP() << "The address sanitizer knows no exceptions on such a stack.";
  host.files->files["/base/empty.velto"] = "";
  interpreter.globals().define("o", makeRef<Giver>(interpreter));
  for (const char* const body :
       {"return f(n + 1)", "return o.f(n + 1)", "return [n + 1].map(f)", "execute(\"empty.velto\") return f(n + 1)"}) {
    interpreter.globals().values.remove("f");
    interpret("func f(_ n) " + std::string(body) + " end");
    const Value function = interpreter.globals().get("f").value();
    for (int time = 0; time < 2; ++time) {
      host.logger->messages.clear();
      test::onFiber(1024 * 1024, [&] {
        const auto reportError = [](const String&) {};
        EXPECT_THROW(function.callable()->call(interpreter, {Value(0)}, reportError), VeltoError);
      });
      ASSERT_FALSE(host.logger->messages.empty()) << body;
      EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.") << body;
      EXPECT_EQ(interpreter.stack().size(), 1u);
    }
  }
}

TEST_F(InterpreterTest, ReportsNestedStatementsThatWereParsedWithMoreStack) {
  const std::vector<std::pair<std::string, std::string>> blocks = {
      {"if true ", "end "}, {"for i in 0...0 ", "end "}, {"while true ", "end "}, {"switch 1 default: ", "end "}};
  for (const auto& [open, close] : blocks) {
    std::string program;
    for (int count = 0; count < 5'000; ++count) program += open;
    program += "1 ";
    for (int count = 0; count < 5'000; ++count) program += close;
    Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
    Statements statements;
    onStack(64 << 20,
            [&] { statements = Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse(); });
    ASSERT_TRUE(host.logger->messages.empty()) << open;
    onStack(160 * 1024, [&] {
      Resolver(interpreter).resolve(statements);
      interpreter.interpret(statements);
    });
    ASSERT_EQ(host.logger->messages.size(), 2u) << open;
    EXPECT_EQ(host.logger->messages[0].message, "Stack exhausted.");
    EXPECT_EQ(host.logger->messages[1].message, "Stack exhausted.");
    EXPECT_EQ(interpreter.stack().size(), 1u);
    host.logger->messages.clear();
  }
}

TEST_F(InterpreterTest, LetsAHostDealWithALackOfMemory) {
  interpreter.globals().define("f", makeRef<Function0>("f", []() -> Value { throw std::bad_alloc(); }));
  EXPECT_THROW(interpret("print(\"before\") if true f() end"), std::bad_alloc);
  EXPECT_EQ(host.output(), "before");
  EXPECT_TRUE(interpreter.hadError);
  EXPECT_EQ(interpreter.stack().size(), 1u);
  interpret("print(1)");
  EXPECT_EQ(host.output(), "before1");
}

/// Fails as no file system should.
class BrokenFileSystem final : public test::BareFileSystem {
 protected:
  std::string doRead(const Url&) override { throw std::runtime_error("the disk is gone"); }
  std::shared_ptr<FileHandle> doCreate(const Url&) override { return FileSystem::local()->standardOutput(); }
};

TEST_F(InterpreterTest, ReportsWhateverAFileSystemThrows) {
  Interpreter broken(std::nullopt, host.logger, std::make_shared<BrokenFileSystem>());
  for (const char* program : {"include \"a\"", "execute(\"a\")", "process(\"a\", into: \"b\")"}) {
    Scanner scanner(program, Scanner::Mode::program, host.logger, "main");
    broken.interpret(Parser(Unpacker(scanner.scanTokens(), host.logger).unpack(), host.logger).parse());
  }
  EXPECT_THAT(host.messages(), ElementsAre("main:1:1...1:12: error: Cannot include 'a': the disk is gone.",
                                           "main:1:8...1:9: error: Cannot execute 'a': the disk is gone",
                                           "main:1:1...1:13: info: execute(a) called here",
                                           "main:1:8...1:9: error: Cannot process 'a': the disk is gone",
                                           "main:1:1...1:24: info: process(a, into: b) called here"));
}

TEST_F(InterpreterTest, ChecksTheNumberOfLoopVariablesFirst) {
  interpreter.globals().define("largest", makeRef<CountableClosedRange>(0, std::numeric_limits<Int>::max()));
  interpret("for (a, b) in largest end");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:5...1:11: error: For loop expected a single variable."));
}

TEST_F(InterpreterTest, SeesAHostsWriteToTheValues) {
  interpret("var a = 1 func f() return a end");
  interpreter.globals().values.set("a", 2);
  interpret("print(f())");
  EXPECT_EQ(host.output(), "2");
}

TEST_F(InterpreterTest, PassesTheLoggerOnToTheCache) {
  EXPECT_EQ(interpreter.parseCache().logger(), host.logger);
  EXPECT_EQ(interpreter.logger(), host.logger);
}

TEST_F(InterpreterTest, VisitsATupleLikeAnArrayOfVariables) {
  interpreter.globals().define("a", 1);
  interpreter.globals().define("b", "x");
  interpreter.globals().define("c", Value::uninitialized());
  const Range range("t", 1, 1);
  const auto name = [&](const char* text) { return Token(TokenType::identifier, text, range); };
  std::string output;
  interpreter.print = [&](const String& text) { output.append(text.view()); };
  const auto block = [&](std::vector<Token> names) {
    return ExpressionBlock{.range = range, .expression = Tuple{.range = range, .names = std::move(names)}};
  };
  interpreter.interpret({block({name("a"), name("b")}), block({name("c")})});
  EXPECT_EQ(output, "[1, x]");
  EXPECT_THAT(host.messages(), ElementsAre("t:1:1...1:1: error: Uninitialized variable 'c'."));
}

TEST_F(InterpreterTest, TakesAnUninitializedValueOfAHostAsAnyOther) {
  const auto uninitialized = makeRef<Function0>("nothing", []() -> Value { return Value::uninitialized(); });
  interpreter.globals().define("nothing", uninitialized);
  host.files->files["/base/page"] = "<%= nothing() %>, <%= nil %>, <%= [nothing(), nil] %>, <%= [1: nothing()] %>";
  std::string output;
  interpreter.print = [&](const String& text) { output.append(text.view()); };
  interpret("include \"page\" print(\", \\(nothing() is Number) \\(nil is Number)\")");
  EXPECT_EQ(output, "<uninitialized>, nil, [<uninitialized>, nil], [1: <uninitialized>], false false");
  EXPECT_THAT(host.messages(), testing::IsEmpty());
}

TEST_F(InterpreterTest, TakesAContainerOfAHostForNoSequence) {
  interpreter.globals().define("list", makeRef<Function0>("list", []() -> Value {
                                 return makeRef<HostArray>(std::vector<HostValue>{"a", "b"});
                               }));
  interpreter.globals().define("ages", makeRef<Function0>("ages", []() -> Value {
                                 return makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{"a", 1}});
                               }));
  interpret("print(list().count) print(ages().count)");
  EXPECT_EQ(host.output(), "21");
  interpret("list()[0]");
  interpret("ages()[\"a\"]");
  interpret("for x in list() print(x) end");
  interpret("for (k, v) in ages() print(k) end");
  EXPECT_THAT(host.messages(), ElementsAre("main:1:7...1:8: error: Can only subscript arrays, dictionaries or strings.",
                                           "main:1:7...1:8: error: Can only subscript arrays, dictionaries or strings.",
                                           "main:1:10...1:16: error: For loop needs a sequence.",
                                           "main:1:15...1:21: error: For loop needs a sequence."));
  EXPECT_EQ(host.output(), "21");
}

TEST_F(InterpreterTest, RefusesOperatorsThatTheParserNeverMakes) {
  const Range range("t", 1, 1);
  const Expression one = Literal{.range = range, .value = 1};
  const Expression yes = Literal{.range = range, .value = true};
  const Token comma(TokenType::comma, ",", range);
  interpreter.interpret({ExpressionStatement{Binary{.range = range, .left = one, .operator_ = comma, .right = one}}});
  interpreter.interpret({ExpressionStatement{Logical{.range = range, .left = yes, .operator_ = comma, .right = yes}}});
  EXPECT_THAT(host.messages(), ElementsAre("t:1:1...1:1: error: Invalid binary operator.",
                                           "t:1:1...1:1: error: Invalid binary operator."));
}

TEST_F(InterpreterTest, VisitsACaseWithoutEffect) {
  const Range range("t", 1, 1);
  interpreter.interpret({Case{.range = range, .pattern = Token(TokenType::identifier, "T", range), .body = {}}});
  EXPECT_FALSE(interpreter.hadError);
}

TEST(IntegerConversion, TruncatesTowardZero) {
  EXPECT_EQ(integer(1.9), 1);
  EXPECT_EQ(integer(-0.5), 0);
  EXPECT_EQ(integer(-9223372036854775808.0), std::numeric_limits<Int>::min());
  EXPECT_EQ(integer32(2147483647.5), 2147483647);
  EXPECT_EQ(integer32(-2147483648.5), -2147483648);
}

TEST_F(InterpreterTest, FindsAVariableAgainHoweverFarOutItLies) {
  const Range range("t", 1, 1);
  const Token name(TokenType::identifier, "a", range);
  interpreter.globals().define(name, "outermost");
  const std::uint32_t place = interpreter.globals().values.placeOf(name.lexeme);
  for (const Int depth : {Int{1}, Local::farthest + 1}) {
    while (std::ssize(interpreter.stack()) <= depth) interpreter.pushEnvironment();
    // As many names as there are in front of the other one.
    Environment& innermost = *interpreter.stack().back();
    for (std::uint32_t other = 0; other < place; ++other) innermost.define(decimal(other), Value());
    innermost.define(name, "innermost");
    const Variable read{.range = range, .name = name};
    interpreter.locals.set(read.id, depth);
    const Statement print = ExpressionBlock{.range = range, .expression = read};
    interpreter.interpret({print, print});
  }
  EXPECT_EQ(host.output(), "outermostoutermostoutermostoutermost");
}

TEST_F(InterpreterTest, ReadsManyResolvedVariablesPastANearerOne) {
  const Range range("t", 1, 1);
  const Token name(TokenType::identifier, "a", range);
  interpreter.pushEnvironment().define(name, 1);
  interpreter.pushEnvironment().define(name, 2);
  // So many that some aren't found where they would stand alone.
  Statements reads;
  for (int count = 0; count < 3'000; ++count) {
    const Variable read{.range = range, .name = name};
    interpreter.locals.set(read.id, 1);
    reads.push_back(ExpressionBlock{.range = range, .expression = read});
  }
  interpreter.interpret(reads);
  EXPECT_EQ(host.output(), std::string(3'000, '1'));
}

using InterpreterDeathTest = InterpreterTest;

TEST_F(InterpreterDeathTest, StopsAtNumbersThatAreNoIntegers) {
  EXPECT_DEATH(integer(9223372036854775808.0), "fatal: The number 9.22337e\\+18 can't become an integer.");
  EXPECT_DEATH(integer(-9223372036854777856.0), "fatal: The number -9.22337e\\+18 can't become an integer.");
  EXPECT_DEATH(integer(std::numeric_limits<double>::quiet_NaN()), "fatal: The number nan can't become an integer.");
  EXPECT_DEATH(integer32(2147483648.0), "fatal: The number 2.14748e\\+09 can't become an integer.");
  EXPECT_DEATH(integer32(-2147483649.0), "fatal: The number -2.14748e\\+09 can't become an integer.");
}

TEST_F(InterpreterDeathTest, StopsWhenTheGlobalsArePopped) {
  EXPECT_DEATH(interpreter.popEnvironment(), "fatal: The outermost scope can't be popped.");
}

TEST_F(InterpreterDeathTest, StopsAtADepthThatNoScopeHas) {
  const Range range("t", 1, 1);
  const Token name(TokenType::identifier, "a", range);
  interpreter.globals().define("a", 1);
  const Variable read{.range = range, .name = name};
  const Assignment write{.range = range, .name = name, .value = Literal{.range = range, .value = 2}};
  const std::pair<Int, const char*> rows[] = {
      {-1, "fatal: The depth of a variable can't be negative."},
      {1, "fatal: The scope of a resolved variable has died."},
      {100'000, "fatal: The scope of a resolved variable has died."},
      {std::numeric_limits<Int>::max(), "fatal: The scope of a resolved variable has died."}};
  for (const auto& [depth, message] : rows) {
    interpreter.locals.set(read.id, depth);
    interpreter.locals.set(write.id, depth);
    EXPECT_DEATH(interpreter.interpret({ExpressionStatement{read}}), message);
    EXPECT_DEATH(interpreter.interpret({ExpressionStatement{write}}), message);
  }
}

TEST_F(InterpreterDeathTest, StopsAtALoopUpToTheLargestInteger) {
  interpreter.globals().define("largest", makeRef<CountableClosedRange>(0, std::numeric_limits<Int>::max()));
  EXPECT_DEATH(interpret("for a in largest end"), "fatal: A loop can't run up to the largest integer.");
}

TEST_F(InterpreterDeathTest, StopsAtAnythingThrown) {
  interpreter.globals().define("f", makeRef<Function0>("f", []() -> Value { throw 42; }));
  EXPECT_DEATH(interpret("f()"), "fatal: Unknown exception of a foreign type");
}

TEST_F(InterpreterDeathTest, StopsAtAForeignException) {
  interpreter.globals().define("f", makeRef<Function0>("f", []() -> Value { throw std::runtime_error("foreign"); }));
  EXPECT_DEATH(interpret("f()"), "fatal: Unknown exception foreign");
}

TEST_F(InterpreterDeathTest, StopsAtARecordThatLeavesNoValue) {
  struct Silent {
    const Uuid id{};
    Range range;
    void accept(ExpressionVisitor&) const {}
  };
  const Range range("t", 1, 1);
  const ExpressionStatement silent{Silent{.range = range}};
  EXPECT_DEATH(interpreter.interpret({silent}), "fatal: Evaluation did not produce a value.");
  const Expression number = Literal{.range = range, .value = 1};
  interpreter.interpret({ExpressionStatement{VisitedExpression{.range = range, .original = number}}});
  EXPECT_DEATH(interpreter.interpret({silent}), "fatal: Evaluation did not produce a value.");
}

}  // namespace
}  // namespace velto
