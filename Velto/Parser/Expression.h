// The expression trees: 15 kinds of plain records behind one small handle.
#pragma once

#include <concepts>
#include <optional>
#include <utility>
#include <vector>

#include "Velto/Parser/NodeId.h"
#include "Velto/Parser/NodeKind.h"
#include "Velto/Parser/NodeMemory.h"
#include "Velto/Parser/PlaceHint.h"
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

/// Any expression record, shared and immutable; a copy of the handle, like a copy of the record, keeps the `id`.
class Expression {
 public:
  template <ExpressionRecord Record>
  Expression(Record record) : node_(makeRef<const Box<Record>>(std::move(record))) {}

  /// The node's identity, drawn at the construction of the record.
  const Uuid& id() const noexcept { return node_->id(); }
  const Range& range() const noexcept { return node_->range(); }
  /// Calls the operation of the visitor that belongs to the kind.
  void accept(ExpressionVisitor& visitor) const { node_->accept(visitor); }

  /// The record if it is of this kind, otherwise null.
  template <typename Record>
  const Record* as() const noexcept {
    const auto* box = dynamic_cast<const Box<Record>*>(node_.get());
    return box ? &box->record : nullptr;
  }

  /// A number for the kind of record, for walkers that would rather switch than be visited.
  ExpressionKinds::Kind kind() const noexcept { return node_->kind; }
  /// The record, which must be of this kind.
  template <typename Record>
  const Record& record() const noexcept {
    return static_cast<const Box<Record>*>(node_.get())->record;
  }

 private:
  struct Node : Counted {
    explicit Node(ExpressionKinds::Kind kind) noexcept : kind(kind) {}
    virtual const Uuid& id() const noexcept = 0;
    virtual const Range& range() const noexcept = 0;
    virtual void accept(ExpressionVisitor& visitor) const = 0;

    static void* operator new(std::size_t size) { return NodeMemory::allocate(size); }
    static void operator delete(void* memory) noexcept { NodeMemory::release(memory); }

    const ExpressionKinds::Kind kind;
  };

  template <typename Record>
  struct Box final : Node {
    static_assert(alignof(Record) <= alignof(void*));  // the memory of nodes gives no more
    explicit Box(Record&& record) : Node(ExpressionKinds::of<Record>), record(std::move(record)) {}
    const Uuid& id() const noexcept override { return record.id; }
    const Range& range() const noexcept override { return record.range; }
    void accept(ExpressionVisitor& visitor) const override { record.accept(visitor); }

    const Record record;
  };

  Ref<const Node> node_;
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
  PlaceHint entry{};  ///< in the dictionary that was subscripted last

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
  PlaceHint place{};  ///< in the scope where it was found last

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
