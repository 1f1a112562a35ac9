// The frame of the resolver, its scopes, and the statements.
#include "Velto/Interpreter/Resolver.h"

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Parser/StatementNodes.h"
#include "Velto/Platform/Fatal.h"

namespace velto {

Resolver::Resolver(Interpreter& interpreter) : logger_(interpreter.logger()), interpreter_(interpreter), scopes_(1) {
}

void Resolver::resolve(const Statements& statements) {
  stack_ = StackGuard();  // for the thread that resolves, whichever made the resolver
  try {
    walkList(statements);
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

void Resolver::visit(const Statement& statement) {
  walk(statement);
}

void Resolver::visit(const Expression& expression) {
  walk(expression);
}

/// An error costs the scope, which only a resolver that is used again can tell.
template <typename FindRange>
void Resolver::declare(const String& name, const FindRange& findRange) {
  if (scopes_.empty() || scopes_.back().try_emplace(name, false).second) return;
  scopes_.pop_back();
  fail(*logger_, VeltoError::Step::interpret, findRange(), "Variable with this name already declared in this scope.");
}

void Resolver::define(const String& name) {
  if (!scopes_.empty()) scopes_.back()[name] = true;
}

void Resolver::walk(const Statement& statement) {
  const auto walkAs = [&]<typename Record>(std::type_identity<Record>) { walk(statement.node<Record>()); };
  if (!StatementKinds::dispatch(statement.kind(), walkAs)) statement.accept(*this);
}

template <typename List>
void Resolver::walkList(const List& statements) {
  if (stack_.isExhausted() && !statements.empty()) [[unlikely]]
    failExhausted(statements.front());
  for (const Statement& statement : statements) walk(statement);
}

void Resolver::failExhausted(const Statement& statement) {
  fail(*logger_, VeltoError::Step::interpret, statement.range(), "Stack exhausted.");
}

void Resolver::failExhausted(const Expression& expression) {
  fail(*logger_, VeltoError::Step::interpret, expression.range(), "Stack exhausted.");
}

void Resolver::walkBlock(const StatementList& statements) {
  scopes_.emplace_back();
  walkList(statements);
  scopes_.pop_back();
}

/// How many scopes lie inside the nearest one that has the name, the innermost `skipped` ones left out of the search.
std::optional<Int> Resolver::depth(const String& name, std::size_t skipped) const {
  for (std::size_t index = scopes_.size() - skipped; index > 0; --index) {
    if (scopes_[index - 1].contains(name)) return static_cast<Int>(scopes_.size() - index);
  }
  return std::nullopt;
}

/// A name that is just being declared, as in `var a = a`, is looked for outside its own scope alone.
void Resolver::resolveLocal(const String& name, const Uuid& id) {
  if (scopes_.empty()) return;
  const auto innermost = scopes_.back().find(name);
  const bool isBeingDeclared = innermost != scopes_.back().end() && !innermost->second;
  if (const std::optional<Int> found = depth(name, isBeingDeclared ? 1 : 0)) interpreter_.locals.set(id, *found);
}

// Not those of template text and jumps, which have nothing to resolve; not those of a clause, which its `switch` reads;
// and not those of an `include`, neither the name of the file nor the file: all that it brings in is looked up as the
// program runs.

void Resolver::walk(const NodeOf<ExpressionBlock>& node) {
  walk(node.expression);
}

void Resolver::walk(const NodeOf<ExpressionStatement>& node) {
  walk(node.expression);
}

void Resolver::walk(const NodeOf<VariableDeclaration>& node) {
  declare(node.name, [&] { return recordOf(node).name.range; });
  if (node.initializer) walk(*node.initializer);
  define(node.name);
}

void Resolver::walk(const NodeOf<FunctionDeclaration>& node) {
  declare(node.name, [&] { return recordOf(node).name.range; });
  define(node.name);  // before the body, which can call itself
  scopes_.emplace_back();
  for (const auto& parameter : node.parameters()) {
    const auto index = static_cast<std::size_t>(&parameter - node.parameters().data());
    declare(parameter.name, [&] { return recordOf(node).parameters[index].name.range; });
    define(parameter.name);
  }
  walkList(node.body);
  scopes_.pop_back();
}

void Resolver::walk(const NodeOf<Return>& node) {
  if (node.value) walk(*node.value);
}

void Resolver::walk(const NodeOf<If>& node) {
  for (const auto& branch : node.branches()) {
    if (branch.condition) walk(*branch.condition);
    walkBlock(branch.body);
  }
}

void Resolver::walk(const NodeOf<While>& node) {
  walk(node.condition);
  walkBlock(node.body);
}

/// The loop names stay declared and not defined, which only a read in their own scope could see, and there is none.
void Resolver::walk(const NodeOf<For>& node) {
  walk(node.sequence);
  scopes_.emplace_back();
  for (const auto& name : node.names()) {
    const auto index = static_cast<std::size_t>(&name - node.names().data());
    declare(name.lexeme, [&] { return recordOf(node).tuple.names[index].range; });
  }
  walkBlock(node.body);
  scopes_.pop_back();
}

void Resolver::walk(const NodeOf<Switch>& node) {
  walk(node.expr);
  for (const CaseParts& clause : node.cases()) {
    if (clause.expression) walk(*clause.expression);
    walkBlock(clause.body);
  }
  walkBlock(node.defaultBody);
}

}  // namespace velto
