// A function that a program declares.
#pragma once

#include <vector>

#include "Velto/Interpreter/Environment.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

class Function final : public Callable {
 public:
  Function(FunctionDeclaration declaration, Ref<Environment> closure);
  /// The node must be of a declaration.
  Function(Ref<const Node> declaration, Ref<Environment> closure);

  FunctionDeclaration declaration() const;
  /// The same as it stands in the tree.
  const Statement& statement() const noexcept { return declaration_; }
  /// What `Bindings` has to know of the names of the parameters.
  std::uint64_t parameterBits() const noexcept { return parameterBits_; }
  /// The scope in which the declaration ran.
  const Ref<Environment>& closure() const noexcept { return closure_; }

  String name() const override;
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;

  /// "func add(a:b)"
  String description() const;

 private:
  Statement declaration_;
  Labels labels_;
  std::uint64_t parameterBits_;
  Ref<Environment> closure_;
};

}  // namespace velto
