// The resolver's way through expressions.
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/Resolver.h"
#include "Velto/Parser/ExpressionNodes.h"

namespace velto {

void Resolver::walk(const Expression& expression) {
  if (stack_.isExhausted()) [[unlikely]]
    failExhausted(expression);
  const auto walkAs = [&]<typename Record>(std::type_identity<Record>) { walk(expression.node<Record>()); };
  if (!ExpressionKinds::dispatch(expression.kind(), walkAs)) expression.accept(*this);
}

void Resolver::walk(const NodeOf<Variable>& node) {
  resolveLocal(node.name, node.id);
}

/// All names share the one entry of the node, so the last one found decides.
void Resolver::walk(const NodeOf<Tuple>& node) {
  for (const auto& name : node.names()) resolveLocal(name.lexeme, idOf(node));
}

void Resolver::walk(const NodeOf<Assignment>& node) {
  walk(node.value);
  if (const std::optional<Int> found = depth(node.name, 0)) interpreter_.locals.set(node.id, *found);
}

void Resolver::walk(const NodeOf<Binary>& node) {
  walk(node.left);
  walk(node.right);
}

void Resolver::walk(const NodeOf<Logical>& node) {
  walk(node.left);
  walk(node.right);
}

void Resolver::walk(const NodeOf<Subscript>& node) {
  walk(node.subscriptee);
  walk(node.index);
}

void Resolver::walk(const NodeOf<Unary>& node) {
  walk(node.right);
}

void Resolver::walk(const NodeOf<Grouping>& node) {
  walk(node.expression);
}

void Resolver::walk(const NodeOf<Member>& node) {
  walk(node.object);
}

void Resolver::walk(const NodeOf<TypeCheck>& node) {
  walk(node.instance);
}

void Resolver::walk(const NodeOf<Call>& node) {
  walk(node.callee);
  for (const auto& argument : node.arguments()) walk(argument.value);
}

void Resolver::walk(const NodeOf<ArrayLiteral>& node) {
  for (const Expression& element : node.elements()) walk(element);
}

void Resolver::walk(const NodeOf<DictionaryLiteral>& node) {
  for (const auto& element : node.elements()) {
    walk(element.key);
    walk(element.value);
  }
}

void Resolver::walk(const NodeOf<StringExpression>& node) {
  for (const auto& interpolation : node.interpolations()) walk(interpolation.value);
}

}  // namespace velto
