// The frame of the resolver, its scopes, and the statements.
#include "Velto/Interpreter/Resolver.h"

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/Fatal.h"

namespace velto {

Resolver::Resolver(Interpreter& interpreter) : logger_(interpreter.logger()), interpreter_(interpreter), scopes_(1) {
}

void Resolver::resolve(const Statements& statements) {
  stack_ = StackGuard();  // for the thread that resolves, whichever made the resolver
  try {
    resolveList(statements);
  } catch (const VeltoError&) {
    hadError_ = true;
  } catch (const std::bad_alloc&) {
    throw;  // the host's to deal with
  } catch (const std::exception& error) {
    fatalError(String::concatenation({"Unknown exception ", error.what()}));
  } catch (...) {
    fatalError("Unknown exception of a foreign type");
  }
}

/// An error costs the scope, which only a resolver that is used again can tell.
void Resolver::declare(const Token& name) {
  if (scopes_.empty() || scopes_.back().try_emplace(name.lexeme, false).second) return;
  scopes_.pop_back();
  fail(*logger_, VeltoError::Step::interpret, name.range, "Variable with this name already declared in this scope.");
}

void Resolver::define(const Token& name) {
  if (!scopes_.empty()) scopes_.back()[name.lexeme] = true;
}

void Resolver::resolve(const Expression& expression) {
  if (stack_.isExhausted()) fail(*logger_, VeltoError::Step::interpret, expression.range(), "Stack exhausted.");
  expression.accept(*this);
}

void Resolver::resolveList(const Statements& statements) {
  if (stack_.isExhausted() && !statements.empty()) {
    fail(*logger_, VeltoError::Step::interpret, statements.front().range(), "Stack exhausted.");
  }
  for (const Statement& statement : statements) statement.accept(*this);
}

void Resolver::resolveBlock(const Statements& statements) {
  scopes_.emplace_back();
  resolveList(statements);
  scopes_.pop_back();
}

/// How many scopes lie inside the nearest one that has the name, the innermost `skipped` ones left out of the search.
std::optional<Int> Resolver::depth(const Token& name, std::size_t skipped) const {
  for (std::size_t index = scopes_.size() - skipped; index > 0; --index) {
    if (scopes_[index - 1].contains(name.lexeme)) return static_cast<Int>(scopes_.size() - index);
  }
  return std::nullopt;
}

/// A name that is just being declared, as in `var a = a`, is looked for outside its own scope alone.
void Resolver::resolveLocal(const Token& name, const Uuid& id) {
  if (scopes_.empty()) return;
  const auto innermost = scopes_.back().find(name.lexeme);
  const bool isBeingDeclared = innermost != scopes_.back().end() && !innermost->second;
  if (const std::optional<Int> found = depth(name, isBeingDeclared ? 1 : 0)) interpreter_.locals.set(id, *found);
}

void Resolver::visitVerbatim(const Verbatim&) {
}
void Resolver::visitBreak(const Break&) {
}
void Resolver::visitContinue(const Continue&) {
}
void Resolver::visitCase(const Case&) {
}

/// Neither the name of the file nor the file: all that an include brings in is looked up as the program runs.
void Resolver::visitInclude(const Include&) {
}

void Resolver::visitExpressionBlock(const ExpressionBlock& node) {
  resolve(node.expression);
}

void Resolver::visitExpressionStatement(const ExpressionStatement& node) {
  resolve(node.expression);
}

void Resolver::visitVariableDeclaration(const VariableDeclaration& node) {
  declare(node.name);
  if (node.initializer) resolve(*node.initializer);
  define(node.name);
}

void Resolver::visitFunctionDeclaration(const FunctionDeclaration& node) {
  declare(node.name);
  define(node.name);  // before the body, which can call itself
  scopes_.emplace_back();
  for (const FunctionParameter& parameter : node.parameters) {
    declare(parameter.name);
    define(parameter.name);
  }
  resolveList(node.body);
  scopes_.pop_back();
}

void Resolver::visitReturn(const Return& node) {
  if (node.value) resolve(*node.value);
}

void Resolver::visitIf(const If& node) {
  resolveBranch(node.mainBranch);
  for (const IfBranch& branch : node.elseIfBranches) resolveBranch(branch);
  if (node.elseBranch) resolveBranch(*node.elseBranch);
}

void Resolver::resolveBranch(const IfBranch& branch) {
  if (branch.condition) resolve(*branch.condition);
  resolveBlock(branch.statements);
}

void Resolver::visitWhile(const While& node) {
  resolve(node.condition);
  resolveBlock(node.body);
}

/// The loop names stay declared and not defined, which only a read in their own scope could see, and there is none.
void Resolver::visitFor(const For& node) {
  resolve(node.sequence);
  scopes_.emplace_back();
  for (const Token& name : node.tuple.names) declare(name);
  resolveBlock(node.body);
  scopes_.pop_back();
}

void Resolver::visitSwitch(const Switch& node) {
  resolve(node.expr);
  for (const Case& case_ : node.cases) {
    if (const auto* pattern = std::get_if<Expression>(&case_.pattern)) resolve(*pattern);
    resolveBlock(case_.body);
  }
  resolveBlock(node.defaultBody);
}

}  // namespace velto
