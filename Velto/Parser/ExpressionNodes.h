// How expressions are kept.
#pragma once

#include "Velto/Parser/Expression.h"
#include "Velto/Parser/NodeAccess.h"
#include "Velto/Parser/PlaceHint.h"

namespace velto {

/// Where an expression begins stands in it, so that it is told at once however deep its first part is. Where it ends is
/// that of the last part wherever there is one that can't be deep.
struct ExpressionNode : Node {
  const Place start;

 protected:
  ExpressionNode(Kind kind, Place start, std::uint8_t detail = 0) noexcept
      : Node(Family::expression, kind, detail), start(start) {}
};

Point startOf(const Expression& expression) noexcept;
Point endOf(const Expression& expression) noexcept;

/// The range of what ends with an expression; where that ends is looked for if anybody asks.
class UpTo {
 public:
  UpTo(const Point& start, const Expression& last) noexcept : start_(start), last_(last) {}

  operator const Point&() const noexcept { return start_; }
  operator Range() const { return Stretch(start_, endOf(last_)); }

 private:
  Point start_;
  const Expression& last_;
};

/// An expression, or nothing.
class OptionalExpression {
 public:
  OptionalExpression() noexcept = default;
  OptionalExpression(const std::optional<Expression>& expression) noexcept
      : expression_(expression ? *expression : Expression()) {}

  explicit operator bool() const noexcept { return static_cast<bool>(expression_.node_); }
  const Expression& operator*() const noexcept { return expression_; }
  const Expression* operator->() const noexcept { return &expression_; }
  operator std::optional<Expression>() const { return *this ? std::optional(expression_) : std::nullopt; }

 private:
  Expression expression_;
};

template <>
struct NodeOf<ArrayLiteral> final : ExpressionNode {
  NodeOf(const Stretch& range, const std::vector<Expression>& elements, Packing& packing) noexcept;
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const std::vector<Expression>& elements) noexcept {
    return elements.size() * sizeof(Expression);
  }
  ArrayLiteral unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Expression> elements() const noexcept { return itemsBehind<Expression>(*this, count); }

  const Place endPlace;
  const std::uint32_t count;
};

template <>
struct NodeOf<Assignment> final : ExpressionNode {
  NodeOf(const Stretch& range, const Token& name, const Expression& value, Packing& packing,
         const Uuid& id = Uuid()) noexcept;
  Assignment unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const Place endPlace;
  const String name;
  const Expression value;
  const Uuid id;
};

template <>
struct NodeOf<Binary> final : ExpressionNode {
  NodeOf(const Point& start, const Expression& left, const Token& operator_, const Expression& right,
         Packing& packing) noexcept;
  Binary unpacked() const;
  Position end() const noexcept { return endOf(right).position; }

  TokenType operator_() const noexcept { return static_cast<TokenType>(detail()); }

  const Place operatorPlace;
  const Expression left;
  const Expression right;
};

struct CallArgument {
  Expression value;
  String label;
  Place labelPlace;
  bool hasLabel;
};

template <>
struct NodeOf<Call> final : ExpressionNode {
  NodeOf(const Stretch& range, const Expression& callee, const Token& paren,
         const std::vector<Call::Argument>& arguments, Packing& packing) noexcept;
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const Expression&, const Token&,
                                 const std::vector<Call::Argument>& arguments) noexcept {
    return arguments.size() * sizeof(CallArgument);
  }
  Call unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const CallArgument> arguments() const noexcept { return itemsBehind<CallArgument>(*this, count); }

  const Place parenPlace;
  const Place endPlace;
  const std::uint32_t count;
  const Expression callee;
};

template <>
struct NodeOf<DictionaryLiteral> final : ExpressionNode {
  struct Element {
    Expression key;
    Expression value;
  };

  NodeOf(const Stretch& range, const std::vector<std::pair<Expression, Expression>>& elements,
         Packing& packing) noexcept;
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&,
                                 const std::vector<std::pair<Expression, Expression>>& elements) noexcept {
    return elements.size() * sizeof(Element);
  }
  DictionaryLiteral unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Element> elements() const noexcept { return itemsBehind<Element>(*this, count); }

  const Place endPlace;
  const std::uint32_t count;
};

template <>
struct NodeOf<Grouping> final : ExpressionNode {
  NodeOf(const Stretch& range, const Expression& expression, Packing& packing) noexcept;
  Grouping unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const Place endPlace;
  const Expression expression;
};

/// A number is kept as such. What a value is that a program can't write is told by the record.
template <>
struct NodeOf<Literal> final : ExpressionNode {
  NodeOf(const Stretch& range, const Value& value, Packing& packing) noexcept;
  Literal unpacked() const;
  Position end() const noexcept { return start.advancedBy(detail()); }

  const double* number() const noexcept { return type == Type::number ? &ifNumber : nullptr; }
  Value value() const noexcept { return type == Type::number ? Value(ifNumber) : otherValue(); }

  enum class Type : std::uint8_t { number, false_, true_, nil, other };
  static Type typeOf(const Value& value) noexcept;

  Value otherValue() const noexcept;

  const Type type;
  const double ifNumber;
};

template <>
struct NodeOf<Logical> final : ExpressionNode {
  NodeOf(const Point& start, const Expression& left, const Token& operator_, const Expression& right,
         Packing& packing) noexcept;
  Logical unpacked() const;
  Position end() const noexcept { return endOf(right).position; }

  TokenType operator_() const noexcept { return static_cast<TokenType>(detail()); }

  const Place operatorPlace;
  const Expression left;
  const Expression right;
};

template <>
struct NodeOf<Member> final : ExpressionNode {
  NodeOf(const Stretch& range, const Expression& object, const Token& dot, const Token& member,
         Packing& packing) noexcept;
  Member unpacked() const;
  Position end() const noexcept { return memberPlace.advancedBy(columnsOf(member)); }

  const Place dotPlace;
  const Place memberPlace;
  const Expression object;
  const String member;
};

template <>
struct NodeOf<Tuple> final : ExpressionNode {
  struct Name {
    String lexeme;
    Place place;
  };

  NodeOf(const Stretch& range, const std::vector<Token>& names, Packing& packing) noexcept;
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const std::vector<Token>& names) noexcept {
    return names.size() * sizeof(Name);
  }
  Tuple unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Name> names() const noexcept { return itemsBehind<Name>(*this, count); }

  const Place endPlace;
  const std::uint32_t count;
};

template <>
struct NodeOf<TypeCheck> final : ExpressionNode {
  NodeOf(const Stretch& range, const Expression& instance, const Token& is, const Token& type,
         Packing& packing) noexcept;
  TypeCheck unpacked() const;
  Position end() const noexcept { return typePlace.advancedBy(columnsOf(type)); }

  const Place isPlace;
  const Place typePlace;
  const Expression instance;
  const String type;
};

template <>
struct NodeOf<StringExpression> final : ExpressionNode {
  struct Interpolation {
    Expression value;
    Int position;
  };

  NodeOf(const Stretch& range, const String& literal,
         const std::vector<StringExpression::Interpolation>& interpolations, Packing& packing) noexcept;
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const String&,
                                 const std::vector<StringExpression::Interpolation>& interpolations) noexcept {
    return interpolations.size() * sizeof(Interpolation);
  }
  StringExpression unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Interpolation> interpolations() const noexcept { return itemsBehind<Interpolation>(*this, count); }

  const Place endPlace;
  const String literal;

  const std::uint32_t count;
};

template <>
struct NodeOf<Subscript> final : ExpressionNode {
  NodeOf(const Stretch& range, const Expression& subscriptee, const Token& bracket, const Expression& index,
         Packing& packing) noexcept;
  Subscript unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const PlaceHint entry;  ///< in the dictionary that was subscripted last

  const Place bracketPlace;
  const Place endPlace;
  const Expression subscriptee;
  const Expression index;
};

template <>
struct NodeOf<Unary> final : ExpressionNode {
  NodeOf(const Stretch& range, const Token& operator_, const Expression& right, Packing& packing) noexcept;
  Unary unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  TokenType operator_() const noexcept { return static_cast<TokenType>(detail()); }

  const Place endPlace;
  const Expression right;
};

template <>
struct NodeOf<Variable> final : ExpressionNode {
  NodeOf(const Stretch&, const Token& name, Packing& packing, const Uuid& id = Uuid()) noexcept;
  Variable unpacked() const;
  Position end() const noexcept { return start.advancedBy(columnsOf(name)); }

  const PlaceHint place;  ///< in the scope where it was found last
  const String name;
  const Uuid id;  ///< as each that is read asks for what is known of it
};

template <typename Record>
Uuid idOf(const NodeOf<Record>& node) noexcept {
  if (NodeAccess::isSpelledOut(node)) return NodeAccess::spelled(node).id;
  if constexpr (requires { node.id; }) {
    return node.id;
  } else {
    return NodeAccess::identity(node);
  }
}

struct HostExpressionNode final : ExpressionNode {
  explicit HostExpressionNode(std::unique_ptr<const Expression::AnyHosted> record) noexcept
      : ExpressionNode(ExpressionKinds::other, Place()), record(std::move(record)) {}

  const std::unique_ptr<const Expression::AnyHosted> record;
};

/// Null if it isn't one of the host's.
inline const HostExpressionNode* hostNodeOf(const Expression& expression) noexcept {
  const bool isHosted = expression.kind() == ExpressionKinds::other;
  return isHosted ? &static_cast<const HostExpressionNode&>(expression.node()) : nullptr;
}

}  // namespace velto
