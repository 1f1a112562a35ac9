// The tree walker.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Interpreter/CharacterFinder.h"
#include "Velto/Interpreter/Environment.h"
#include "Velto/Interpreter/Jumps.h"
#include "Velto/Interpreter/Locals.h"
#include "Velto/Interpreter/ScopeStack.h"
#include "Velto/Interpreter/SurvivingScopes.h"
#include "Velto/Library/Library.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Platform/StackGuard.h"
#include "Velto/Processor/ParseCache.h"
#include "Velto/Value/Callable.h"

namespace velto {
class RecentForms;
}

namespace [[gnu::visibility("default")]] velto {

/// Runs statements. Everything that lives for a run hangs from its interpreter, which belongs to one thread. A failure
/// is reported to the logger and ends the innermost list that `interpret` runs; `break`, `continue` and `return` are
/// tokens that travel outward until a loop, a call or `interpret` takes them.
class Interpreter final : public StatementVisitor, public ExpressionVisitor {
 public:
  /// Output of template text and expression blocks.
  using Print = std::function<void(const String&)>;

  /// Loads the built-in libraries. Without a `baseURL`, paths are taken as they stand. `texts` has the names of the
  /// statements that will run.
  explicit Interpreter(std::optional<Url> baseURL = std::nullopt,
                       std::shared_ptr<Logger> logger = std::make_shared<ArrayLogger>(),
                       std::shared_ptr<FileSystem> fileSystem = FileSystem::local(),
                       std::shared_ptr<TextPool> texts = std::make_shared<TextPool>());
  ~Interpreter() override;
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  const std::optional<Url>& baseURL() const noexcept { return baseURL_; }
  const std::shared_ptr<Logger>& logger() const noexcept { return logger_; }
  const std::shared_ptr<FileSystem>& fileSystem() const noexcept { return fileSystem_; }
  ParseCache& parseCache() noexcept { return parseCache_; }
  /// The outermost scope: host globals, library functions and the program's top-level names.
  Environment& globals() noexcept { return *globals_; }
  /// Every library loaded so far, in load order.
  const std::vector<std::shared_ptr<Library>>& libraries() const noexcept { return libraries_; }
  /// The current scopes; the last one is the current one, the first one `globals`.
  std::span<const Ref<Environment>> stack() const noexcept { return stack_.scopes(); }

  /// Writes to standard output at first.
  Print print;
  /// True as soon as any failure was seen; never cleared here.
  bool hadError = false;
  /// Written by `Resolver`.
  Locals locals;

  void load(std::shared_ptr<Library> library);
  /// Pushes `environment`, or a new scope inside the current one.
  Environment& pushEnvironment(Ref<Environment> environment = nullptr);
  /// Popping `globals` is a fatal stop.
  void popEnvironment();
  /// Runs a top-level list; throws nothing but what isn't the language's, such as `std::bad_alloc`. A list that runs
  /// inside many others lets a failure pass to them where the stack was exhausted: otherwise a file that includes
  /// itself twice would go on for ever, in each of them.
  void interpret(const Statements& statements);

  /// Where a path of the language lies: under `baseURL` if there is one.
  Url resolve(const String& path) const;

  void visitBreak(const Break& node) override;
  void visitCase(const Case& node) override;
  void visitContinue(const Continue& node) override;
  void visitExpressionBlock(const ExpressionBlock& node) override;
  void visitExpressionStatement(const ExpressionStatement& node) override;
  void visitFor(const For& node) override;
  void visitFunctionDeclaration(const FunctionDeclaration& node) override;
  void visitIf(const If& node) override;
  void visitInclude(const Include& node) override;
  void visitReturn(const Return& node) override;
  void visitSwitch(const Switch& node) override;
  void visitVariableDeclaration(const VariableDeclaration& node) override;
  void visitVerbatim(const Verbatim& node) override;
  void visitWhile(const While& node) override;

  void visitArrayLiteral(const ArrayLiteral& node) override;
  void visitAssignment(const Assignment& node) override;
  void visitBinary(const Binary& node) override;
  void visitCall(const Call& node) override;
  void visitDictionaryLiteral(const DictionaryLiteral& node) override;
  void visitGrouping(const Grouping& node) override;
  void visitLiteral(const Literal& node) override;
  void visitLogical(const Logical& node) override;
  void visitMember(const Member& node) override;
  void visitTuple(const Tuple& node) override;
  void visitTypeCheck(const TypeCheck& node) override;
  void visitStringExpression(const StringExpression& node) override;
  void visitSubscript(const Subscript& node) override;
  void visitUnary(const Unary& node) override;
  void visitVariable(const Variable& node) override;

 private:
  friend class Function;
  friend class ScopeGuard;
  class ReturnedValue;
  class RunningList;

  // Interpreter.cpp: the frame
  void execute(const Statement& statement);
  Value evaluate(const Expression& expression);
  Value evaluateNode(const Expression& expression);
  [[gnu::noinline]] Value visited(const Expression& expression);
  void finish(Value result) { lastResult_ = std::move(result); }
  void executeBlock(const Statements& statements);
  void executeList(const Statements& statements);
  void interpretList(const Statements& statements);
  void reportStrayTokens();
  void reportStray(Jumps::Kind kind, std::string_view message);
  Environment& current() noexcept { return *stack_.top(); }
  void popScope() noexcept;
  void renewScope();
  [[gnu::noinline]] void replaceScope();
  [[noreturn]] void fail(const Range& range, String message);
  [[noreturn, gnu::cold, gnu::noinline]] void failExhausted(const Range& range);
  [[gnu::cold, gnu::noinline]] void failExhausted(const Statements& statements);

  // What each kind of expression evaluates to
  Value valueOf(const ArrayLiteral& node);
  Value valueOf(const Assignment& node);
  Value valueOf(const Binary& node);
  Value valueOf(const Call& node);
  Value valueOf(const DictionaryLiteral& node);
  Value valueOf(const Grouping& node);
  Value valueOf(const Literal& node);
  Value valueOf(const Logical& node);
  Value valueOf(const Member& node);
  Value valueOf(const Tuple& node);
  Value valueOf(const TypeCheck& node);
  Value valueOf(const StringExpression& node);
  Value valueOf(const Subscript& node);
  Value valueOf(const Unary& node);
  Value valueOf(const Variable& node);
  Value valueOf(const Return& node);
  void assign(const Assignment& node);
  void store(const Assignment& node, Value value);
  void appendPieces(const StringExpression& node, std::size_t first, StringBuilder& text);
  static const StringExpression* textThatGrows(const Assignment& node);
  static const StringExpression* beginningWithItself(const Assignment& node);
  Value grow(const Assignment& node, const StringExpression& text);

  // InterpreterOperators.cpp: operators, literals, variables and assignment
  bool areSame(const Value& left, const Value& right, const Range& range);
  bool areEqual(const Value& left, const Value& right, const Range& range);
  bool callEquals(const Callable& equals, const Value& left, const Value& right, const Range& range);
  Value calculate(const Token& operator_, double left, double right);
  [[gnu::noinline]] Value makeIntegerRange(const Token& operator_, double lower, double upper);
  bool evaluateOperand(const Expression& operand, const Token& operator_);
  const Value* findAtOnce(const Variable& node) noexcept;
  const Value* findAtOnce(const Subscript& node) noexcept;
  const Value* findValue(const Expression& expression) noexcept;
  static const String* literalText(const Expression& expression) noexcept;
  [[gnu::noinline]] const String* findText(const Expression& expression) noexcept;
  Value readVariable(const Token& name, const Uuid& id);
  const double* findNumber(const Expression& expression) noexcept;
  [[gnu::noinline]] Value combine(const Binary& node);
  static bool isEquality(const Binary& node) noexcept {
    return node.operator_.type == TokenType::equal || node.operator_.type == TokenType::notEqual;
  }
  enum class Answer { no, yes, unknown };
  /// Of a comparison of two texts that are found at once; unknown for any other. Nothing runs.
  [[gnu::noinline]] Answer compareTexts(const Binary& node);
  [[gnu::noinline]] Value lookUp(const Variable& node);
  Value evaluateKey(const Expression& key, const Range& range);

  // InterpreterMembers.cpp: members and subscripts
  Value memberOf(const Value& object, const Member& node);
  [[gnu::noinline]] Value elementOf(const Subscript& node);
  static Value entry(const Subscript& node, const Dictionary& dictionary, const String& key);
  Value element(const Subscript& node, const Array& array);
  Value element(const Subscript& node, const Dictionary& dictionary);
  Value element(const Subscript& node, const String& string);

  // InterpreterCalls.cpp: calls and function declarations
  const Callable* findCallable(const Expression& callee) noexcept;
  [[gnu::noinline]] Ref<const Callable> evaluateCallee(const Call& node);
  [[gnu::noinline]] Value callMember(const Call& node, const Member& member);
  [[gnu::noinline]] Value callAnyMember(const Call& node, const Member& member);
  [[gnu::noinline]] Value callValue(const Call& node);
  [[gnu::noinline]] Value callOther(const Call& node, const Callable& callee);
  const Callable& callableOf(const Call& node, const Value& callee);
  template <typename Callee>
  [[gnu::always_inline]] Value call(const Call& node, const Callee& callee);
  template <typename Callee>
  [[gnu::noinline]] Value callWithMany(const Call& node, const Callee& callee, std::span<const Label> labels);
  template <typename Callee>
  [[gnu::always_inline]] Value call(const Call& node, const Callee& callee, std::span<const Label> labels,
                                    std::byte* memory);
  [[gnu::always_inline]] Value callWith(const Call& node, const Function& function, Arguments arguments);
  Value callWith(const Call& node, const Callable& callee, Arguments arguments);
  [[gnu::cold, gnu::noinline]] void tellOfCall(const Call& node, const Callable& callee,
                                               std::span<const Value> arguments);
  [[noreturn, gnu::cold, gnu::noinline]] void failArgumentCount(const Call& node, const Callable& callee);
  Value call(const Function& function, Arguments arguments);
  [[gnu::noinline]] Value callAtFirst(const Function& function, Arguments arguments);
  Value run(const Function& function, Arguments arguments);
  void bind(const Function& function, Arguments arguments);
  [[gnu::noinline]] void bindOthers(const std::vector<FunctionParameter>& parameters, Arguments arguments);
  Value executeBody(const Statements& body);
  [[gnu::noinline]] bool returnsFrom(const Statements& branch, ReturnedValue& result);
  Value takeReturnValue();
  void printDescription(const Value& value);
  void checkLabel(const Label& expected, const Call::Argument& argument);

  // InterpreterBranches.cpp: branches, loops and includes
  const Statements* chooseBranch(const If& node);
  [[gnu::noinline]] const Statements* chooseOtherBranch(const If& node);
  [[gnu::noinline]] const Statements* chooseAnyBranch(const If& node);
  [[gnu::noinline]] bool evaluateCondition(const Expression& condition);
  bool evaluateAnyCondition(const Expression& condition);
  bool compareAtOnce(const Expression& condition, bool& isMet) noexcept;
  bool executeLoopBody(const Statements& body);
  [[gnu::noinline]] bool takeLoopJumps();
  void iterate(const For& node, const Value& sequence);
  void assignLoopVariable(const Token& name, std::uint32_t place, Value value);
  void iterateIntegers(const For& node, const Token& name, Int lower, Int upper);
  void iterateArray(const For& node, const Token& name, const Array& array);
  void iterateDictionary(const For& node, const Dictionary& dictionary);
  const Token& loopVariable(const For& node);
  bool matches(const Value& value, const Pattern& pattern);
  const Url& resolveInclude(const String& path);
  ParseCache::FileStatements parseIncluded(const Include& node, const String& path);

  /// By bytes, though the hash goes by equivalence, since it is at hand.
  struct SameBytes {
    bool operator()(const String& left, const String& right) const noexcept { return left.view() == right.view(); }
  };

  std::optional<Url> baseURL_;
  std::shared_ptr<Logger> logger_;
  std::shared_ptr<FileSystem> fileSystem_;
  ParseCache parseCache_;
  std::unordered_map<String, Url, std::hash<String>, SameBytes> includes_;  // where each path that was included lies
  Ref<Environment> globals_;
  ScopeStack stack_;
  std::optional<Value> lastResult_;  // of the expression visit that has just ended
  Jumps jumps_;
  CharacterFinder characters_;
  std::unique_ptr<RecentForms> recentForms_;
  String printed_;     // the last text that was made to be printed, whose memory can serve the next one
  Value returnValue_;  // of the `return` that is travelling, `nil` at all other times
  std::vector<std::shared_ptr<Library>> libraries_;
  SurvivingScopes survivors_;
  Int depth_ = 0;          // of nested `interpret`
  bool isCalled_ = false;  // whether a function is that a host calls by itself
  Int exhaustedAt_ = 0;    // the depth at which the stack was exhausted last in this run; 0 if it never was
  StackGuard guard_;
};

}  // namespace velto
