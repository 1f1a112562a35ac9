// The static pass that binds variables to scopes before a run.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/RecordVisitor.h"
#include "Velto/Platform/StackGuard.h"

namespace [[gnu::visibility("default")]] velto {

/// Mirrors the scopes that the interpreter will make, and writes to `Interpreter::locals` how many links lie between
/// each variable that it can place and its scope. All other names are looked up as the program runs.
class Resolver final : public RecordVisitor {
 public:
  explicit Resolver(Interpreter& interpreter);

  /// Never throws `VeltoError`; the first error is reported and ends the pass.
  void resolve(const Statements& statements);

  bool hadError() const noexcept { return hadError_; }

 private:
  using Scope = std::unordered_map<String, bool>;  // false while a name is declared and not yet defined

  void visit(const Statement& statement) override;
  void visit(const Expression& expression) override;

  template <typename FindRange>
  void declare(const String& name, const FindRange& findRange);
  void define(const String& name);
  void walk(const Statement& statement);
  void walk(const Expression& expression);
  template <typename List>
  void walkList(const List& statements);
  void walkBlock(const StatementList& statements);
  [[noreturn, gnu::cold, gnu::noinline]] void failExhausted(const Statement& statement);
  [[noreturn, gnu::cold, gnu::noinline]] void failExhausted(const Expression& expression);
  void resolveLocal(const String& name, const Uuid& id);
  std::optional<Int> depth(const String& name, std::size_t skipped) const;

  // Each stands apart, so that the way into the depth takes no room for the others.
  [[gnu::noinline]] void walk(const NodeOf<ExpressionBlock>& node);
  [[gnu::noinline]] void walk(const NodeOf<ExpressionStatement>& node);
  [[gnu::noinline]] void walk(const NodeOf<For>& node);
  [[gnu::noinline]] void walk(const NodeOf<FunctionDeclaration>& node);
  [[gnu::noinline]] void walk(const NodeOf<If>& node);
  [[gnu::noinline]] void walk(const NodeOf<Return>& node);
  [[gnu::noinline]] void walk(const NodeOf<Switch>& node);
  [[gnu::noinline]] void walk(const NodeOf<VariableDeclaration>& node);
  [[gnu::noinline]] void walk(const NodeOf<While>& node);

  [[gnu::noinline]] void walk(const NodeOf<ArrayLiteral>& node);
  [[gnu::noinline]] void walk(const NodeOf<Assignment>& node);
  [[gnu::noinline]] void walk(const NodeOf<Binary>& node);
  [[gnu::noinline]] void walk(const NodeOf<Call>& node);
  [[gnu::noinline]] void walk(const NodeOf<DictionaryLiteral>& node);
  [[gnu::noinline]] void walk(const NodeOf<Grouping>& node);
  [[gnu::noinline]] void walk(const NodeOf<Logical>& node);
  [[gnu::noinline]] void walk(const NodeOf<Member>& node);
  [[gnu::noinline]] void walk(const NodeOf<Tuple>& node);
  [[gnu::noinline]] void walk(const NodeOf<TypeCheck>& node);
  [[gnu::noinline]] void walk(const NodeOf<StringExpression>& node);
  [[gnu::noinline]] void walk(const NodeOf<Subscript>& node);
  [[gnu::noinline]] void walk(const NodeOf<Unary>& node);
  [[gnu::noinline]] void walk(const NodeOf<Variable>& node);
  /// All other kinds have nothing to resolve.
  template <typename Record>
  void walk(const NodeOf<Record>&) noexcept {}

  std::shared_ptr<Logger> logger_;
  Interpreter& interpreter_;
  std::vector<Scope> scopes_;  // outermost first; the first one is that of the globals
  bool hadError_ = false;
  StackGuard stack_;
};

}  // namespace velto
