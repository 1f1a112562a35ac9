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
#include "Velto/Parser/RecordVisitor.h"
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
class Interpreter final : public RecordVisitor {
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

 private:
  void visit(const Statement& statement) override;
  void visit(const Expression& expression) override;

  friend class Function;
  friend class ScopeGuard;
  class ReturnedValue;
  class RunningList;

  // Interpreter.cpp: the frame
  void execute(const Statement& statement);
  Value evaluate(const Expression& expression);
  Value evaluateNode(const Expression& expression);
  [[gnu::noinline]] Value visited(const Expression& expression);
  void executeBlock(const StatementList& statements);
  void executeList(const StatementList& statements);
  void interpretList(const Statements& statements);
  void reportStrayTokens();
  void reportStray(Jumps::Kind kind, std::string_view message);
  Environment& current() noexcept { return *stack_.top(); }
  void popScope() noexcept;
  void renewScope();
  [[gnu::noinline]] void replaceScope();
  [[noreturn]] void fail(const Range& range, String message);
  /// At one of the tokens of the record, which is worth making then.
  template <typename Record>
  [[noreturn, gnu::cold, gnu::noinline]] void fail(const NodeOf<Record>& node, Token Record::*token, String message);
  [[noreturn, gnu::cold, gnu::noinline]] void failExhausted(const Range& range);
  template <typename Record>
  [[noreturn, gnu::cold, gnu::noinline]] void failExhausted(const NodeOf<Record>& node);
  [[gnu::cold, gnu::noinline]] void failExhausted(const StatementList& statements);

  // What each kind of statement does
  void execute(const NodeOf<Break>& node);
  void execute(const NodeOf<Continue>& node);
  void execute(const NodeOf<ExpressionBlock>& node);
  void execute(const NodeOf<ExpressionStatement>& node);
  void execute(const NodeOf<For>& node);
  void execute(const NodeOf<FunctionDeclaration>& node);
  void execute(const NodeOf<If>& node);
  void execute(const NodeOf<Include>& node);
  void execute(const NodeOf<Return>& node);
  void execute(const NodeOf<Switch>& node);
  void execute(const NodeOf<VariableDeclaration>& node);
  void execute(const NodeOf<Verbatim>& node);
  void execute(const NodeOf<While>& node);

  // What each kind of expression evaluates to
  Value valueOf(const NodeOf<ArrayLiteral>& node);
  Value valueOf(const NodeOf<Assignment>& node);
  Value valueOf(const NodeOf<Binary>& node);
  Value valueOf(const NodeOf<Call>& node);
  Value valueOf(const NodeOf<DictionaryLiteral>& node);
  Value valueOf(const NodeOf<Grouping>& node);
  Value valueOf(const NodeOf<Literal>& node);
  Value valueOf(const NodeOf<Logical>& node);
  Value valueOf(const NodeOf<Member>& node);
  Value valueOf(const NodeOf<Tuple>& node);
  Value valueOf(const NodeOf<TypeCheck>& node);
  Value valueOf(const NodeOf<StringExpression>& node);
  Value valueOf(const NodeOf<Subscript>& node);
  Value valueOf(const NodeOf<Unary>& node);
  Value valueOf(const NodeOf<Variable>& node);
  Value valueOf(const NodeOf<Return>& node);
  void assign(const NodeOf<Assignment>& node);
  void store(const NodeOf<Assignment>& node, Value value);
  template <typename Record>
  void declare(const NodeOf<Record>& node, const Value& value);
  template <typename Record>
  [[gnu::cold, gnu::noinline]] void declareAgain(const NodeOf<Record>& node, const Value& value);
  [[gnu::noinline]] void storeAnew(const NodeOf<Assignment>& node, Value value, const Local& local);
  [[gnu::noinline]] void storeOutward(const NodeOf<Assignment>& node, Value value);
  void appendPieces(const NodeOf<StringExpression>& node, std::size_t first, StringBuilder& text);
  static const NodeOf<StringExpression>* textThatGrows(const NodeOf<Assignment>& node);
  static const NodeOf<StringExpression>* beginningWithItself(const NodeOf<Assignment>& node);
  Value grow(const NodeOf<Assignment>& node, const NodeOf<StringExpression>& text);

  // InterpreterOperators.cpp: operators, literals, variables and assignment
  template <typename FindRange>
  bool areSame(const Value& left, const Value& right, const FindRange& findRange);
  bool areEqual(const Value& left, const Value& right, const Range& range);
  bool callEquals(const Callable& equals, const Value& left, const Value& right, const Range& range);
  Value calculate(const NodeOf<Binary>& node, double left, double right);
  [[gnu::noinline]] Value makeIntegerRange(const NodeOf<Binary>& node, double lower, double upper);
  bool evaluateOperand(const Expression& operand, const NodeOf<Logical>& node);
  const Value* findAtOnce(const NodeOf<Variable>& node) noexcept;
  const Value* findAtOnce(const NodeOf<Subscript>& node) noexcept;
  const Value* findValue(const Expression& expression) noexcept;
  static const String* literalText(const Expression& expression) noexcept;
  [[gnu::noinline]] const String* findText(const Expression& expression) noexcept;
  [[gnu::noinline]] Value readVariable(const NodeOf<Variable>& node);
  Value readVariable(const Token& name, const Uuid& id);
  const double* findNumber(const Expression& expression) noexcept;
  [[gnu::noinline]] Value combine(const NodeOf<Binary>& node);
  [[gnu::noinline]] Value compare(const NodeOf<Binary>& node, const Value& left, const Value& right);
  static bool isEquality(const NodeOf<Binary>& node) noexcept;
  enum class Answer { no, yes, unknown };
  /// Of a comparison of two texts that are found at once; unknown for any other. Nothing runs.
  [[gnu::noinline]] Answer compareTexts(const NodeOf<Binary>& node);
  [[gnu::noinline]] Value lookUp(const NodeOf<Variable>& node);
  template <typename FindRange>
  Value evaluateKey(const Expression& key, const FindRange& findRange);

  // InterpreterMembers.cpp: members and subscripts
  Value memberOf(const Value& object, const NodeOf<Member>& node);
  [[gnu::noinline]] Value elementOf(const NodeOf<Subscript>& node);
  static Value entry(const NodeOf<Subscript>& node, const Dictionary& dictionary, const String& key);
  Value element(const NodeOf<Subscript>& node, const Array& array);
  Value element(const NodeOf<Subscript>& node, const Dictionary& dictionary);
  Value element(const NodeOf<Subscript>& node, const String& string);

  // InterpreterCalls.cpp: calls and function declarations
  const Callable* findCallable(const Expression& callee) noexcept;
  [[gnu::noinline]] Ref<const Callable> evaluateCallee(const NodeOf<Call>& node);
  [[gnu::noinline]] Value callMember(const NodeOf<Call>& node, const NodeOf<Member>& member);
  [[gnu::noinline]] Value callAnyMember(const NodeOf<Call>& node, const NodeOf<Member>& member);
  [[gnu::noinline]] Value callValue(const NodeOf<Call>& node);
  [[gnu::noinline]] Value callOther(const NodeOf<Call>& node, const Callable& callee);
  const Callable& callableOf(const NodeOf<Call>& node, const Value& callee);
  template <typename Callee>
  [[gnu::always_inline]] Value call(const NodeOf<Call>& node, const Callee& callee);
  template <typename Callee>
  [[gnu::noinline]] Value callWithMany(const NodeOf<Call>& node, const Callee& callee, std::span<const Label> labels);
  template <typename Callee>
  [[gnu::always_inline]] Value call(const NodeOf<Call>& node, const Callee& callee, std::span<const Label> labels,
                                    std::byte* memory);
  [[gnu::always_inline]] Value callWith(const NodeOf<Call>& node, const Function& function, Arguments arguments);
  Value callWith(const NodeOf<Call>& node, const Callable& callee, Arguments arguments);
  [[gnu::cold, gnu::noinline]] void tellOfCall(const NodeOf<Call>& node, const Callable& callee,
                                               std::span<const Value> arguments);
  [[noreturn, gnu::cold, gnu::noinline]] void failArgumentCount(const NodeOf<Call>& node, const Callable& callee);
  Value call(const Function& function, Arguments arguments);
  [[gnu::noinline]] Value callAtFirst(const Function& function, Arguments arguments);
  Value run(const Function& function, Arguments arguments);
  void bind(const Function& function, Arguments arguments);
  [[gnu::noinline]] void bindOthers(const NodeOf<FunctionDeclaration>& declaration, Arguments arguments);
  Value executeBody(const StatementList& body);
  [[gnu::noinline]] bool returnsFrom(const StatementList& branch, ReturnedValue& result);
  Value takeReturnValue();
  void printDescription(const Value& value);
  [[gnu::noinline]] void checkLabel(const NodeOf<Call>& node, const CallArgument& argument, const Label& expected);

  // InterpreterBranches.cpp: branches, loops and includes
  const StatementList* chooseBranch(const NodeOf<If>& node);
  [[gnu::noinline]] const StatementList* chooseOtherBranch(const NodeOf<If>& node);
  [[gnu::noinline]] const StatementList* chooseAnyBranch(const NodeOf<If>& node);
  [[gnu::noinline]] bool evaluateCondition(const Expression& condition);
  bool evaluateAnyCondition(const Expression& condition);
  bool compareAtOnce(const Expression& condition, bool& isMet) noexcept;
  bool executeLoopBody(const StatementList& body);
  [[gnu::noinline]] bool takeLoopJumps();
  void iterate(const NodeOf<For>& node, const Value& sequence);
  void assignLoopVariable(const NodeOf<For>& node, std::uint32_t place, Value value);
  [[gnu::noinline]] void assignMovedLoopVariable(const NodeOf<For>& node, std::uint32_t place, Value value);
  void iterateIntegers(const NodeOf<For>& node, Int lower, Int upper);
  void iterateArray(const NodeOf<For>& node, const Array& array);
  void iterateDictionary(const NodeOf<For>& node, const Dictionary& dictionary);
  void expectLoopVariable(const NodeOf<For>& node);
  bool matches(const Value& value, const CaseParts& clause);
  const Url& resolveInclude(const String& path);
  ParseCache::FileStatements parseIncluded(const NodeOf<Include>& node, const String& path);

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
