// The frame of the interpreter: its state, how lists of statements run, and the plainest statements.
#include "Velto/Interpreter/Interpreter.h"

#include <new>

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Interpreter/ScopeGuard.h"
#include "Velto/Library/BuiltInLibraries.h"
#include "Velto/Platform/Fatal.h"

namespace velto {

Interpreter::Interpreter(std::optional<Url> baseURL, std::shared_ptr<Logger> logger,
                         std::shared_ptr<FileSystem> fileSystem)
    : print([output = fileSystem->standardOutput()](const String& text) { output->write(text); }),
      baseURL_(std::move(baseURL)),
      logger_(std::move(logger)),
      fileSystem_(std::move(fileSystem)),
      parseCache_(logger_, fileSystem_),
      globals_(makeRef<Environment>(logger_)),
      stack_{globals_} {
  for (std::shared_ptr<Library>& library : makeBuiltInLibraries()) load(std::move(library));
}

Interpreter::~Interpreter() {
  globals_->values.clear();  // its functions hold it
}

void Interpreter::load(std::shared_ptr<Library> library) {
  libraries_.push_back(library);
  library->load(*this);
}

Environment& Interpreter::pushEnvironment(Ref<Environment> environment) {
  if (!environment) environment = makeRef<Environment>(stack_.back().get(), logger_);
  stack_.push_back(std::move(environment));
  return *stack_.back();
}

void Interpreter::popEnvironment() {
  if (stack_.size() < 2) fatalError("The outermost scope can't be popped.");
  Ref<Environment> scope = std::move(stack_.back());
  stack_.pop_back();
  survivors_.leave(std::move(scope));
}

/// Counts the lists that run inside one another; at the end of the outermost one all output is written.
class Interpreter::RunningList {
 public:
  explicit RunningList(Int& depth) noexcept : depth_(depth) { ++depth_; }
  ~RunningList() {
    if (--depth_ == 0) FileSystem::flush();
  }
  RunningList(const RunningList&) = delete;
  RunningList& operator=(const RunningList&) = delete;

 private:
  Int& depth_;
};

void Interpreter::interpret(const Statements& statements) {
  const RunningList list(depth_);
  try {
    for (const Statement& statement : statements) {
      interpretStatement(statement);
      reportStrayTokens();
    }
  } catch (const VeltoError&) {
    hadError = true;
  }
}

void Interpreter::interpretStatement(const Statement& statement) {
  try {
    statement.accept(*this);
  } catch (const VeltoError&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw;  // the host's to deal with
  } catch (const std::exception& error) {
    fatalError(String::concatenation({"Unknown exception ", error.what()}));
  } catch (...) {
    fatalError("Unknown exception of a foreign type");
  }
}

void Interpreter::reportStrayTokens() {
  reportStray(breakToken_, "Cannot break from outside a loop.");
  reportStray(continueToken_, "Cannot continue from outside a loop.");
  reportStray(returnToken_, "Cannot return from outside a function.");
  returnValue_ = Value::nil();
}

void Interpreter::reportStray(std::optional<Token>& token, std::string_view message) {
  if (!token) return;
  logger_->report(Message::Level::error, message, token->range);
  hadError = true;
  token.reset();
}

Url Interpreter::resolve(const String& path) const {
  return baseURL_ ? baseURL_->appendingPathComponent(path) : Url(path);
}

Value Interpreter::evaluate(const Expression& expression) {
  if (guard_.isExhausted()) fail(expression.range(), "Stack exhausted.");
  expression.accept(*this);
  if (!lastResult_) fatalError("Evaluation did not produce a value.");
  Value result = std::move(*lastResult_);
  lastResult_.reset();
  return result;
}

void Interpreter::executeBlock(const Statements& statements) {
  executeBlock(statements, makeRef<Environment>(stack_.back().get(), logger_));
}

void Interpreter::executeBlock(const Statements& statements, Ref<Environment> environment) {
  const ScopeGuard scope(*this, std::move(environment));
  for (const Statement& statement : statements) {
    statement.accept(*this);
    if (isLeaving()) return;
  }
}

Value Interpreter::takeReturnValue() {
  returnToken_.reset();
  return std::exchange(returnValue_, Value::nil());
}

void Interpreter::fail(const Range& range, String message) {
  velto::fail(*logger_, VeltoError::Step::interpret, range, std::move(message));
}

void Interpreter::visitVerbatim(const Verbatim& node) {
  print(node.text);
}

void Interpreter::visitExpressionBlock(const ExpressionBlock& node) {
  const Value value = evaluate(node.expression);
  print(value.description());
}

void Interpreter::visitExpressionStatement(const ExpressionStatement& node) {
  evaluate(node.expression);
}

void Interpreter::visitVariableDeclaration(const VariableDeclaration& node) {
  Value value = node.initializer ? evaluate(*node.initializer) : Value::uninitialized();
  current().define(node.name, std::move(value));
}

}  // namespace velto
