// How statements are kept.
#pragma once

#include "Velto/Parser/ExpressionNodes.h"
#include "Velto/Parser/NodeList.h"
#include "Velto/Parser/Statement.h"

namespace velto {

struct StatementNode : Node {
  const Place start;

 protected:
  explicit StatementNode(Kind kind, Place start, std::uint8_t detail = 0) noexcept
      : Node(Family::statement, kind, detail), start(start) {}
};

template <>
struct NodeOf<Break> final : StatementNode {
  NodeOf(const Token& token, Packing& packing) noexcept;
  Break unpacked() const;
  Position end() const noexcept;
};

/// A clause of a `switch`.
struct CaseParts {
  CaseParts(const Stretch& range, const Pattern& pattern, const Statements& body, Packing& packing);
  Case unpacked(const Node& node) const;

  const Place start;
  const Place endPlace;
  const OptionalExpression expression;  ///< absent where the name of a type stands
  const String type;
  const StatementList body;
  const Place typePlace;
};

template <>
struct NodeOf<Case> final : StatementNode {
  NodeOf(const Stretch& range, const Pattern& pattern, const Statements& body, Packing& packing);
  Case unpacked() const { return parts.unpacked(*this); }
  Position end() const noexcept { return parts.endPlace.position(); }

  const CaseParts parts;
};

template <>
struct NodeOf<Continue> final : StatementNode {
  NodeOf(const Token& token, Packing& packing) noexcept;
  Continue unpacked() const;
  Position end() const noexcept;
};

template <>
struct NodeOf<ExpressionBlock> final : StatementNode {
  NodeOf(const Point& start, const Expression& expression, Packing& packing) noexcept;
  ExpressionBlock unpacked() const;
  Position end() const noexcept { return endOf(expression).position; }

  const Expression expression;
};

template <>
struct NodeOf<ExpressionStatement> final : StatementNode {
  NodeOf(const Expression& expression, Packing& packing) noexcept;
  ExpressionStatement unpacked() const { return {expression}; }

  const Expression expression;
};

/// The identity of the tuple is that of the node, which needs none itself.
template <>
struct NodeOf<For> final : StatementNode {
  using Name = NodeOf<Tuple>::Name;

  NodeOf(const Stretch& range, const Tuple& tuple, const Expression& sequence, const Statements& body,
         Packing& packing);
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const Tuple& tuple, const Expression&, const Statements&) noexcept {
    return tuple.names.size() * sizeof(Name);
  }
  For unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Name> names() const noexcept { return itemsBehind<Name>(*this, count); }

  const Place endPlace;
  const Expression sequence;
  const StatementList body;
  const Place tupleStart;
  const Place tupleEnd;
  const std::uint32_t count;
};

template <>
struct NodeOf<FunctionDeclaration> final : StatementNode {
  struct Parameter {
    String label;
    String name;
    Place labelPlace;
    Place namePlace;
    bool isLabelled;
  };

  NodeOf(const Stretch& range, const Token& name, const std::vector<FunctionParameter>& parameters,
         const Statements& body, Packing& packing);
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const Token&, const std::vector<FunctionParameter>& parameters,
                                 const Statements&) noexcept {
    return parameters.size() * sizeof(Parameter);
  }
  FunctionDeclaration unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const Parameter> parameters() const noexcept { return itemsBehind<Parameter>(*this, count); }

  const Place endPlace;
  const String name;
  const StatementList body;
  const std::uint32_t count;
};

/// All branches stand in one list, as each is taken by the same rule.
template <>
struct NodeOf<If> final : StatementNode {
  struct Branch {
    OptionalExpression condition;
    StatementList body;
  };

  NodeOf(const Stretch& range, const IfBranch& mainBranch, const std::vector<IfBranch>& elseIfBranches,
         const std::optional<IfBranch>& elseBranch, Packing& packing);
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const IfBranch&, const std::vector<IfBranch>& elseIfBranches,
                                 const std::optional<IfBranch>& elseBranch) noexcept {
    return countOf(elseIfBranches, elseBranch) * sizeof(Branch);
  }
  If unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const Branch& mainBranch() const noexcept { return branches().front(); }
  std::span<const Branch> otherBranches() const noexcept { return branches().subspan(1); }
  std::span<const Branch> branches() const noexcept { return itemsBehind<Branch>(*this, count); }
  bool hasElse() const noexcept { return detail() != 0; }

  static std::size_t countOf(const std::vector<IfBranch>& elseIfBranches,
                             const std::optional<IfBranch>& elseBranch) noexcept {
    return 1 + elseIfBranches.size() + (elseBranch ? 1 : 0);
  }

  const Place endPlace;
  const std::uint32_t count;
};

template <>
struct NodeOf<Include> final : StatementNode {
  NodeOf(const Token& include, const Expression& file, Packing& packing) noexcept;
  Include unpacked() const;
  Position end() const noexcept { return endOf(file).position; }

  const Expression file;
};

template <>
struct NodeOf<Return> final : StatementNode {
  NodeOf(const Stretch& range, const Token& keyword, const std::optional<Expression>& value, Packing& packing) noexcept;
  Return unpacked() const;
  Position end() const noexcept;

  const OptionalExpression value;
};

Range keywordRangeOf(const NodeOf<Return>& node);

template <>
struct NodeOf<Switch> final : StatementNode {
  NodeOf(const Stretch& range, const Expression& expr, const std::vector<Case>& cases, const Statements& defaultBody,
         Packing& packing);
  ~NodeOf();
  static std::size_t bytesBehind(const Stretch&, const Expression&, const std::vector<Case>& cases,
                                 const Statements&) noexcept {
    return cases.size() * sizeof(CaseParts);
  }
  Switch unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  std::span<const CaseParts> cases() const noexcept { return itemsBehind<CaseParts>(*this, count); }

  const Place endPlace;
  const Expression expr;
  const StatementList defaultBody;
  const std::uint32_t count;
};

template <>
struct NodeOf<VariableDeclaration> final : StatementNode {
  NodeOf(const Stretch& range, const Token& name, const std::optional<Expression>& initializer,
         Packing& packing) noexcept;
  VariableDeclaration unpacked() const;
  Position end() const noexcept;

  const Place namePlace;
  const String name;
  const OptionalExpression initializer;
};

template <>
struct NodeOf<Verbatim> final : StatementNode {
  NodeOf(const Stretch& range, const String& text, Packing& packing) noexcept;
  Verbatim unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const Place endPlace;
  const String text;
};

template <>
struct NodeOf<While> final : StatementNode {
  NodeOf(const Stretch& range, const Expression& condition, const Statements& body, Packing& packing);
  While unpacked() const;
  Position end() const noexcept { return endPlace.position(); }

  const Place endPlace;
  const Expression condition;
  const StatementList body;
};

struct HostStatementNode final : StatementNode {
  explicit HostStatementNode(std::unique_ptr<const Statement::AnyHosted> record) noexcept
      : StatementNode(StatementKinds::other, Place()), record(std::move(record)) {}

  const std::unique_ptr<const Statement::AnyHosted> record;
};

}  // namespace velto
