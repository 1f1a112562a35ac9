// What records say, one part after the other.
#pragma once

#include <tuple>

#include "Velto/Parser/Statement.h"

namespace velto {

// All that the node of each kind is made of; identities aside, which only few nodes keep.

inline auto partsOf(const ArrayLiteral& record) noexcept {
  return std::tie(record.range, record.elements);
}
inline auto partsOf(const Assignment& record) noexcept {
  return std::tie(record.range, record.name, record.value);
}
inline auto partsOf(const Binary& record) noexcept {
  return std::tie(record.range, record.left, record.operator_, record.right);
}
inline auto partsOf(const Call& record) noexcept {
  return std::tie(record.range, record.callee, record.paren, record.arguments);
}
inline auto partsOf(const DictionaryLiteral& record) noexcept {
  return std::tie(record.range, record.elements);
}
inline auto partsOf(const Grouping& record) noexcept {
  return std::tie(record.range, record.expression);
}
inline auto partsOf(const Literal& record) noexcept {
  return std::tie(record.range, record.value);
}
inline auto partsOf(const Logical& record) noexcept {
  return std::tie(record.range, record.left, record.operator_, record.right);
}
inline auto partsOf(const Member& record) noexcept {
  return std::tie(record.range, record.object, record.dot, record.member);
}
inline auto partsOf(const Tuple& record) noexcept {
  return std::tie(record.range, record.names);
}
inline auto partsOf(const TypeCheck& record) noexcept {
  return std::tie(record.range, record.instance, record.is, record.type);
}
inline auto partsOf(const StringExpression& record) noexcept {
  return std::tie(record.range, record.literal, record.interpolations);
}
inline auto partsOf(const Subscript& record) noexcept {
  return std::tie(record.range, record.subscriptee, record.bracket, record.index);
}
inline auto partsOf(const Unary& record) noexcept {
  return std::tie(record.range, record.operator_, record.right);
}
inline auto partsOf(const Variable& record) noexcept {
  return std::tie(record.range, record.name);
}
inline auto partsOf(const Break& record) noexcept {
  return std::tie(record.token);
}
inline auto partsOf(const Continue& record) noexcept {
  return std::tie(record.token);
}
inline auto partsOf(const Case& record) noexcept {
  return std::tie(record.range, record.pattern, record.body);
}
inline auto partsOf(const ExpressionBlock& record) noexcept {
  return std::tie(record.range, record.expression);
}
inline auto partsOf(const ExpressionStatement& record) noexcept {
  return std::tie(record.expression);
}
inline auto partsOf(const For& record) noexcept {
  return std::tie(record.range, record.tuple, record.sequence, record.body);
}
inline auto partsOf(const FunctionDeclaration& record) noexcept {
  return std::tie(record.range, record.name, record.parameters, record.body);
}
inline auto partsOf(const If& record) noexcept {
  return std::tie(record.range, record.mainBranch, record.elseIfBranches, record.elseBranch);
}
inline auto partsOf(const Include& record) noexcept {
  return std::tie(record.include, record.file);
}
inline auto partsOf(const Return& record) noexcept {
  return std::tie(record.range, record.keyword, record.value);
}
inline auto partsOf(const Switch& record) noexcept {
  return std::tie(record.range, record.expr, record.cases, record.defaultBody);
}
inline auto partsOf(const VariableDeclaration& record) noexcept {
  return std::tie(record.range, record.name, record.initializer);
}
inline auto partsOf(const Verbatim& record) noexcept {
  return std::tie(record.range, record.text);
}
inline auto partsOf(const While& record) noexcept {
  return std::tie(record.range, record.condition, record.body);
}

}  // namespace velto
