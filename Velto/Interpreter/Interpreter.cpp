// The frame of the interpreter: its state, how lists of statements run, and the plainest statements.
#include "Velto/Interpreter/Interpreter.h"

#include <new>

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Library/BuiltInLibraries.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Platform/PendingOutput.h"
#include "Velto/Value/Printing.h"
#include "Velto/Value/RecentForms.h"

namespace velto {

Interpreter::Interpreter(std::optional<Url> baseURL, std::shared_ptr<Logger> logger,
                         std::shared_ptr<FileSystem> fileSystem, std::shared_ptr<TextPool> texts)
    : print([output = fileSystem->standardOutput()](const String& text) { output->write(text); }),
      baseURL_(std::move(baseURL)),
      logger_(std::move(logger)),
      fileSystem_(std::move(fileSystem)),
      parseCache_(logger_, fileSystem_, std::move(texts)),
      globals_(makeRef<Environment>(logger_)),
      stack_(globals_, logger_),
      recentForms_(std::make_unique<RecentForms>()) {
  for (std::shared_ptr<Library>& library : makeBuiltInLibraries()) load(std::move(library));
}

Interpreter::~Interpreter() {
  while (stack_.size() > 1) popScope();
  globals_->values.clear();  // its functions hold it
}

// By value, since it may be one of those that the list has already.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Interpreter::load(std::shared_ptr<Library> library) {
  libraries_.push_back(library);
  library->load(*this);
}

Environment& Interpreter::pushEnvironment(Ref<Environment> environment) {
  if (environment) {
    stack_.push(std::move(environment));
  } else {
    stack_.push(&current());
  }
  return current();
}

void Interpreter::popEnvironment() {
  popScope();
}

/// Counts the lists that run inside one another; at the end of the outermost one all output is written, whichever way
/// it ends.
class Interpreter::RunningList {
 public:
  explicit RunningList(Int& depth) noexcept : depth_(depth) { ++depth_; }
  ~RunningList() {
    if (--depth_ == 0) flushPendingOutputAnyway();
  }
  RunningList(const RunningList&) = delete;
  RunningList& operator=(const RunningList&) = delete;

 private:
  Int& depth_;
};

void Interpreter::interpret(const Statements& statements) {
  const RunningList list(depth_);
  if (depth_ == 1) {
    if (!isCalled_) guard_ = StackGuard();  // for the thread that runs, whichever made the interpreter
    exhaustedAt_ = 0;
  }
  try {
    interpretList(statements);
    if (depth_ == 1) FileSystem::flush();  // a lack of memory for it can't be told later
  } catch (const std::bad_alloc&) {
    hadError = true;
    throw;  // the host's to deal with
  }
}

void Interpreter::interpretList(const Statements& statements) {
  try {
    for (const Statement& statement : statements) {
      execute(statement);
      if (jumps_.areAny()) reportStrayTokens();
    }
  } catch (const VeltoError&) {
    constexpr Int manyLists = 16;
    hadError = true;
    if (depth_ > 1 && exhaustedAt_ > manyLists) throw;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    fatalError(String::concatenation({"Unknown exception ", error.what()}));
  } catch (...) {
    fatalError("Unknown exception of a foreign type");
  }
}

void Interpreter::reportStrayTokens() {
  reportStray(Jumps::Kind::break_, "Cannot break from outside a loop.");
  reportStray(Jumps::Kind::continue_, "Cannot continue from outside a loop.");
  reportStray(Jumps::Kind::return_, "Cannot return from outside a function.");
  returnValue_ = Value::nil();
}

void Interpreter::reportStray(Jumps::Kind kind, std::string_view message) {
  if (!jumps_.take(kind)) return;
  logger_->report(Message::Level::error, message, jumps_.range(kind));
  hadError = true;
}

Url Interpreter::resolve(const String& path) const {
  return baseURL_ ? baseURL_->appendingPathComponent(path) : Url(path);
}

/// What a visit would leave in `lastResult_`, without the visit where the kind is one of the language's. For those that
/// `evaluate` leaves to it.
Value Interpreter::evaluateNode(const Expression& expression) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(expression.range());
  switch (expression.kind()) {
    case ExpressionKinds::of<ArrayLiteral>:
      return valueOf(expression.node<ArrayLiteral>());
    case ExpressionKinds::of<Assignment>:
      return valueOf(expression.node<Assignment>());
    case ExpressionKinds::of<DictionaryLiteral>:
      return valueOf(expression.node<DictionaryLiteral>());
    case ExpressionKinds::of<Grouping>:
      return valueOf(expression.node<Grouping>());
    case ExpressionKinds::of<Logical>:
      return valueOf(expression.node<Logical>());
    case ExpressionKinds::of<Member>:
      return valueOf(expression.node<Member>());
    case ExpressionKinds::of<Tuple>:
      return valueOf(expression.node<Tuple>());
    case ExpressionKinds::of<TypeCheck>:
      return valueOf(expression.node<TypeCheck>());
    case ExpressionKinds::of<StringExpression>:
      return valueOf(expression.node<StringExpression>());
    case ExpressionKinds::of<Unary>:
      return valueOf(expression.node<Unary>());
    default:
      return visited(expression);
  }
}

void Interpreter::failExhausted(const Range& range) {
  exhaustedAt_ = depth_;
  fail(range, "Stack exhausted.");
}

void Interpreter::failExhausted(const StatementList& statements) {
  if (!statements.empty()) failExhausted(statements.front().range());
}

Value Interpreter::visited(const Expression& expression) {
  expression.accept(*this);
  if (!lastResult_) fatalError("Evaluation did not produce a value.");
  Value result = std::move(*lastResult_);
  lastResult_.reset();
  return result;
}

void Interpreter::executeBlock(const StatementList& statements) {
  const ScopeGuard scope(*this);
  executeList(statements);
}

/// The next scope is made first, so that a lack of memory leaves the stack as it is.
void Interpreter::replaceScope() {
  Ref<Environment> next = makeRef<Environment>(&stack_.belowTop(), logger_);
  popScope();
  stack_.push(std::move(next));
}

void Interpreter::fail(const Range& range, String message) {
  velto::fail(*logger_, VeltoError::Step::interpret, range, std::move(message));
}

void Interpreter::execute(const NodeOf<Verbatim>& node) {
  print(node.text);
}

void Interpreter::execute(const NodeOf<ExpressionBlock>& node) {
  const Value value = evaluate(node.expression);
  if (const String* text = value.string()) {
    print(*text);
  } else {
    printDescription(value);
  }
}

/// What `print` runs may print in its turn, and finds no memory to use again then.
void Interpreter::printDescription(const Value& value) {
  StringBuilder description;
  appendDescription(value, description);
  String text = std::exchange(printed_, String());
  text.rewrite(description.view());
  print(text);
  printed_ = std::move(text);
}

void Interpreter::execute(const NodeOf<ExpressionStatement>& node) {
  if (node.expression.kind() == ExpressionKinds::of<Assignment>) return assign(node.expression.node<Assignment>());
  evaluate(node.expression);
}

void Interpreter::execute(const NodeOf<VariableDeclaration>& node) {
  declare(node, node.initializer ? evaluate(*node.initializer) : Value::uninitialized());
}

void Interpreter::visit(const Statement& statement) {
  execute(statement);
}

void Interpreter::visit(const Expression& expression) {
  lastResult_ = evaluate(expression);
}

}  // namespace velto
