// The expression trees: 15 kinds of plain records, and one small handle for all.
#pragma once

#include <concepts>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Velto/Parser/Node.h"
#include "Velto/Parser/NodeId.h"
#include "Velto/Parser/NodeKind.h"
#include "Velto/Platform/Ref.h"
#include "Velto/Scanner/Token.h"

namespace [[gnu::visibility("default")]] velto {

/// One of the records below, told by its `accept`.
template <typename Record>
concept ExpressionRecord =
    !std::same_as<Record, Expression> && requires(const Record& record, ExpressionVisitor& visitor) {
  record.accept(visitor);
};

using ExpressionKinds =
    NodeKinds<struct ArrayLiteral, struct Assignment, struct Binary, struct Call, struct DictionaryLiteral,
              struct Grouping, struct Literal, struct Logical, struct Member, struct Tuple, struct TypeCheck,
              struct StringExpression, struct Subscript, struct Unary, struct Variable>;

/// Any expression, shared and immutable; a copy of the handle, like a copy of the record, keeps the `id`. Trees are
/// kept in a form of few bytes, and a record is made whenever one is asked for.
class Expression {
 public:
  template <ExpressionRecord Record>
  Expression(Record record) : node_(made(std::move(record))) {}

  /// The node's identity, drawn at the construction of the record.
  Uuid id() const noexcept;
  Range range() const;
  /// Calls the operation of the visitor that belongs to the kind; the record that it is shown may end with the call.
  void accept(ExpressionVisitor& visitor) const;

  /// The record if it is of this kind.
  template <typename Record>
  std::optional<Record> as() const {
    if constexpr (ExpressionKinds::has<Record>) {
      return kind() == ExpressionKinds::of<Record> ? std::optional<Record>(recordOf<Record>()) : std::nullopt;
    } else {
      const auto* hosted = dynamic_cast<const Hosted<Record>*>(hostedRecord());
      return hosted ? std::optional<Record>(hosted->record) : std::nullopt;
    }
  }

  /// A number for the kind of record, for walkers that would rather switch than be visited.
  ExpressionKinds::Kind kind() const noexcept { return node_->kind(); }
  /// How the library keeps it.
  const Node& node() const noexcept { return *node_; }
  /// The same as what it is, which must be of this kind.
  template <typename Record>
  const NodeOf<Record>& node() const noexcept {
    return static_cast<const NodeOf<Record>&>(*node_);
  }

 private:
  friend class OptionalExpression;
  friend class Parser;
  friend struct HostExpressionNode;

  /// A record that the language doesn't have.
  struct AnyHosted {
    virtual ~AnyHosted() = default;
    virtual const Uuid& id() const noexcept = 0;
    virtual const Range& range() const noexcept = 0;
    virtual void accept(ExpressionVisitor& visitor) const = 0;
  };

  template <typename Record>
  struct Hosted final : AnyHosted {
    explicit Hosted(Record&& record) : record(std::move(record)) {}
    const Uuid& id() const noexcept override { return record.id; }
    const Range& range() const noexcept override { return record.range; }
    void accept(ExpressionVisitor& visitor) const override { record.accept(visitor); }

    const Record record;
  };

  Expression() noexcept = default;
  explicit Expression(Ref<const Node> node) noexcept : node_(std::move(node)) {}

  template <typename Record>
  static Ref<const Node> made(Record&& record) {
    if constexpr (ExpressionKinds::has<Record>) {
      return spelledOut(std::move(record));
    } else {
      return hosted(std::make_unique<const Hosted<Record>>(std::move(record)));
    }
  }

  /// A node that has the record with it, whatever it says.
  template <typename Record>
  static Ref<const Node> spelledOut(Record&& record);
  static Ref<const Node> hosted(std::unique_ptr<const AnyHosted> record);

  /// Of a node of this kind.
  template <typename Record>
  Record recordOf() const;
  const AnyHosted* hostedRecord() const noexcept;

  Ref<const Node> node_;  // null only in an `OptionalExpression`
};

/// `[a, b]`
struct ArrayLiteral {
  NodeId<ArrayLiteral> id{};
  Range range;
  std::vector<Expression> elements;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a = b`
struct Assignment {
  NodeId<Assignment> id{};
  Range range;
  Token name;
  Expression value;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a + b` and all other operators but `&&` and `||`
struct Binary {
  NodeId<Binary> id{};
  Range range;
  Expression left;
  Token operator_;
  Expression right;

  void accept(ExpressionVisitor& visitor) const;
};

/// `f(a, b: c)`
struct Call {
  struct Argument {
    std::optional<Token> label;
    Expression value;
  };

  NodeId<Call> id{};
  Range range;
  Expression callee;
  Token paren;
  std::vector<Argument> arguments;

  void accept(ExpressionVisitor& visitor) const;
};

/// `[a: b]`; equal keys are all kept, in source order
struct DictionaryLiteral {
  NodeId<DictionaryLiteral> id{};
  Range range;
  std::vector<std::pair<Expression, Expression>> elements;

  void accept(ExpressionVisitor& visitor) const;
};

/// `(a)`
struct Grouping {
  NodeId<Grouping> id{};
  Range range;
  Expression expression;

  void accept(ExpressionVisitor& visitor) const;
};

/// A boolean, a number or `nil`
struct Literal {
  NodeId<Literal> id{};
  Range range;
  Value value;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a && b`, `a || b`
struct Logical {
  NodeId<Logical> id{};
  Range range;
  Expression left;
  Token operator_;
  Expression right;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a.b`
struct Member {
  NodeId<Member> id{};
  Range range;
  Expression object;
  Token dot;
  Token member;

  void accept(ExpressionVisitor& visitor) const;
};

/// The variables of a `for`; at least one. No rule for expressions makes it.
struct Tuple {
  NodeId<Tuple> id{};
  Range range;
  std::vector<Token> names;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a is Name`
struct TypeCheck {
  NodeId<TypeCheck> id{};
  Range range;
  Expression instance;
  Token is;
  Token type;

  void accept(ExpressionVisitor& visitor) const;
};

/// Every string literal, with or without interpolations.
struct StringExpression {
  struct Interpolation {
    Int position;  ///< in `literal`, counted in UTF-16 code units
    Expression value;
  };

  NodeId<StringExpression> id{};
  Range range;     ///< of the first piece alone
  String literal;  ///< all pieces joined, escapes resolved
  std::vector<Interpolation> interpolations;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a[b]`
struct Subscript {
  NodeId<Subscript> id{};
  Range range;
  Expression subscriptee;
  Token bracket;
  Expression index;

  void accept(ExpressionVisitor& visitor) const;
};

/// `-a`, `!a`, and four more prefixes that fail when they are evaluated
struct Unary {
  NodeId<Unary> id{};
  Range range;
  Token operator_;
  Expression right;

  void accept(ExpressionVisitor& visitor) const;
};

/// `a`
struct Variable {
  NodeId<Variable> id{};
  Range range;
  Token name;

  void accept(ExpressionVisitor& visitor) const;
};

/// One operation for each kind. It may throw; a walker that needs a result keeps it elsewhere.
class ExpressionVisitor {
 public:
  virtual ~ExpressionVisitor() = default;

  virtual void visitArrayLiteral(const ArrayLiteral& node) = 0;
  virtual void visitAssignment(const Assignment& node) = 0;
  virtual void visitBinary(const Binary& node) = 0;
  virtual void visitCall(const Call& node) = 0;
  virtual void visitDictionaryLiteral(const DictionaryLiteral& node) = 0;
  virtual void visitGrouping(const Grouping& node) = 0;
  virtual void visitLiteral(const Literal& node) = 0;
  virtual void visitLogical(const Logical& node) = 0;
  virtual void visitMember(const Member& node) = 0;
  virtual void visitTuple(const Tuple& node) = 0;
  virtual void visitTypeCheck(const TypeCheck& node) = 0;
  virtual void visitStringExpression(const StringExpression& node) = 0;
  virtual void visitSubscript(const Subscript& node) = 0;
  virtual void visitUnary(const Unary& node) = 0;
  virtual void visitVariable(const Variable& node) = 0;
};

}  // namespace velto
