// The resolver's way through expressions.
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/Resolver.h"

namespace velto {

void Resolver::visitVariable(const Variable& node) {
  resolveLocal(node.name, node.id);
}

/// All names share the one entry of the node, so the last one found decides.
void Resolver::visitTuple(const Tuple& node) {
  for (const Token& name : node.names) resolveLocal(name, node.id);
}

void Resolver::visitAssignment(const Assignment& node) {
  resolve(node.value);
  if (const std::optional<Int> found = depth(node.name, 0)) interpreter_.locals.set(node.id, *found);
}

void Resolver::visitBinary(const Binary& node) {
  resolve(node.left);
  resolve(node.right);
}

void Resolver::visitLogical(const Logical& node) {
  resolve(node.left);
  resolve(node.right);
}

void Resolver::visitSubscript(const Subscript& node) {
  resolve(node.subscriptee);
  resolve(node.index);
}

void Resolver::visitUnary(const Unary& node) {
  resolve(node.right);
}

void Resolver::visitGrouping(const Grouping& node) {
  resolve(node.expression);
}

void Resolver::visitMember(const Member& node) {
  resolve(node.object);
}

void Resolver::visitTypeCheck(const TypeCheck& node) {
  resolve(node.instance);
}

void Resolver::visitCall(const Call& node) {
  resolve(node.callee);
  for (const Call::Argument& argument : node.arguments) resolve(argument.value);
}

void Resolver::visitArrayLiteral(const ArrayLiteral& node) {
  for (const Expression& element : node.elements) resolve(element);
}

void Resolver::visitDictionaryLiteral(const DictionaryLiteral& node) {
  for (const auto& [key, value] : node.elements) {
    resolve(key);
    resolve(value);
  }
}

void Resolver::visitStringExpression(const StringExpression& node) {
  for (const StringExpression::Interpolation& interpolation : node.interpolations) resolve(interpolation.value);
}

void Resolver::visitLiteral(const Literal&) {
}

}  // namespace velto
