// The statement trees: 14 kinds of plain records with their parts, and one small handle for all.
#pragma once

#include <concepts>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "Velto/Parser/Expression.h"

namespace [[gnu::visibility("default")]] velto {

/// One of the records below, told by its `accept`.
template <typename Record>
concept StatementRecord =
    !std::same_as<Record, Statement> && requires(const Record& record, StatementVisitor& visitor) {
  record.accept(visitor);
};

using StatementKinds =
    NodeKinds<struct Break, struct Case, struct Continue, struct ExpressionBlock, struct ExpressionStatement,
              struct For, struct FunctionDeclaration, struct If, struct Include, struct Return, struct Switch,
              struct VariableDeclaration, struct Verbatim, struct While>;

/// Any statement, shared and immutable; kept like an `Expression`.
class Statement {
 public:
  template <StatementRecord Record>
  Statement(Record record) : node_(made(std::move(record))) {}

  Range range() const;
  /// Calls the operation of the visitor that belongs to the kind; the record that it is shown may end with the call.
  void accept(StatementVisitor& visitor) const;

  /// The record if it is of this kind.
  template <typename Record>
  std::optional<Record> as() const {
    if constexpr (StatementKinds::has<Record>) {
      return kind() == StatementKinds::of<Record> ? std::optional<Record>(recordOf<Record>()) : std::nullopt;
    } else {
      const auto* hosted = dynamic_cast<const Hosted<Record>*>(hostedRecord());
      return hosted ? std::optional<Record>(hosted->record) : std::nullopt;
    }
  }

  /// A number for the kind of record, for walkers that would rather switch than be visited.
  StatementKinds::Kind kind() const noexcept { return node_->kind(); }
  /// How the library keeps it.
  const Node& node() const noexcept { return *node_; }
  /// The same as what it is, which must be of this kind.
  template <typename Record>
  const NodeOf<Record>& node() const noexcept {
    return static_cast<const NodeOf<Record>&>(*node_);
  }

 private:
  friend class Function;
  friend class Parser;
  friend struct HostStatementNode;

  /// A record that the language doesn't have.
  struct AnyHosted {
    virtual ~AnyHosted() = default;
    virtual Range range() const = 0;
    virtual void accept(StatementVisitor& visitor) const = 0;
  };

  template <typename Record>
  struct Hosted final : AnyHosted {
    explicit Hosted(Record&& record) : record(std::move(record)) {}
    Range range() const override {
      if constexpr (requires { record.range(); }) {
        return record.range();
      } else {
        return record.range;
      }
    }
    void accept(StatementVisitor& visitor) const override { record.accept(visitor); }

    const Record record;
  };

  explicit Statement(Ref<const Node> node) noexcept : node_(std::move(node)) {}

  template <typename Record>
  static Ref<const Node> made(Record&& record) {
    if constexpr (StatementKinds::has<Record>) {
      return spelledOut(std::move(record));
    } else {
      return hosted(std::make_unique<const Hosted<Record>>(std::move(record)));
    }
  }

  template <typename Record>
  static Ref<const Node> spelledOut(Record&& record);
  static Ref<const Node> hosted(std::unique_ptr<const AnyHosted> record);

  /// Of a node of this kind.
  template <typename Record>
  Record recordOf() const;
  const AnyHosted* hostedRecord() const noexcept;

  Ref<const Node> node_;
};

using Statements = std::vector<Statement>;
/// Statements within a tree.
using StatementList = NodeList<Statement>;

/// What the subject of a `switch` is matched against: a value, or the name of a type from `case is Name:`.
using Pattern = std::variant<Expression, Token>;

struct IfBranch {
  std::optional<Expression> condition;  ///< absent exactly in an `else`
  Statements statements;
};

struct FunctionParameter {
  Token label;  ///< an identifier, or the `underscore` of a parameter without a label
  Token name;   ///< what binds in the body
};

struct Break {
  Token token;

  Range range() const { return token.range; }
  void accept(StatementVisitor& visitor) const;
};

struct Case {
  Range range;  ///< from the keyword to the colon
  Pattern pattern;
  Statements body;

  void accept(StatementVisitor& visitor) const;
};

struct Continue {
  Token token;

  Range range() const { return token.range; }
  void accept(StatementVisitor& visitor) const;
};

/// `<%= a %>`
struct ExpressionBlock {
  Range range;
  Expression expression;

  void accept(StatementVisitor& visitor) const;
};

struct ExpressionStatement {
  Expression expression;

  Range range() const { return expression.range(); }
  void accept(StatementVisitor& visitor) const;
};

struct For {
  Range range;
  Tuple tuple;
  Expression sequence;
  Statements body;

  void accept(StatementVisitor& visitor) const;
};

struct FunctionDeclaration {
  Range range;  ///< from the name, not the keyword, to the `end`
  Token name;
  std::vector<FunctionParameter> parameters;
  Statements body;

  void accept(StatementVisitor& visitor) const;
};

struct If {
  If(Range range, Expression condition, Statements thenBranch)
      : If(std::move(range), {std::move(condition), std::move(thenBranch)}, {}, std::nullopt) {}
  If(Range range, IfBranch mainBranch, std::vector<IfBranch> elseIfBranches, std::optional<IfBranch> elseBranch)
      : range(std::move(range)),
        mainBranch(std::move(mainBranch)),
        elseIfBranches(std::move(elseIfBranches)),
        elseBranch(std::move(elseBranch)) {}

  Range range;  ///< ends with the main branch, whatever follows
  IfBranch mainBranch;
  std::vector<IfBranch> elseIfBranches;
  std::optional<IfBranch> elseBranch;

  void accept(StatementVisitor& visitor) const;
};

struct Include {
  Token include;
  Expression file;

  Range range() const { return spanning(include.range, file.range()); }
  void accept(StatementVisitor& visitor) const;
};

struct Return {
  Range range;
  Token keyword;
  std::optional<Expression> value = std::nullopt;

  void accept(StatementVisitor& visitor) const;
};

struct Switch {
  Range range;
  Expression expr;
  std::vector<Case> cases;
  Statements defaultBody;

  void accept(StatementVisitor& visitor) const;
};

struct VariableDeclaration {
  Range range;
  Token name;
  std::optional<Expression> initializer = std::nullopt;

  void accept(StatementVisitor& visitor) const;
};

/// Template text.
struct Verbatim {
  Range range;
  String text;

  void accept(StatementVisitor& visitor) const;
};

struct While {
  Range range;
  Expression condition;
  Statements body;

  void accept(StatementVisitor& visitor) const;
};

/// One operation for each kind. It may throw; a walker that needs a result keeps it elsewhere.
class StatementVisitor {
 public:
  virtual ~StatementVisitor() = default;

  virtual void visitBreak(const Break& node) = 0;
  virtual void visitCase(const Case& node) = 0;
  virtual void visitContinue(const Continue& node) = 0;
  virtual void visitExpressionBlock(const ExpressionBlock& node) = 0;
  virtual void visitExpressionStatement(const ExpressionStatement& node) = 0;
  virtual void visitFor(const For& node) = 0;
  virtual void visitFunctionDeclaration(const FunctionDeclaration& node) = 0;
  virtual void visitIf(const If& node) = 0;
  virtual void visitInclude(const Include& node) = 0;
  virtual void visitReturn(const Return& node) = 0;
  virtual void visitSwitch(const Switch& node) = 0;
  virtual void visitVariableDeclaration(const VariableDeclaration& node) = 0;
  virtual void visitVerbatim(const Verbatim& node) = 0;
  virtual void visitWhile(const While& node) = 0;
};

}  // namespace velto
