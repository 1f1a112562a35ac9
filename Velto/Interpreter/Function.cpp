#include "Velto/Interpreter/Function.h"

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Parser/StatementNodes.h"

namespace velto {

namespace {

using Parameter = NodeOf<FunctionDeclaration>::Parameter;

const NodeOf<FunctionDeclaration>& nodeOf(const Function& function) noexcept {
  return function.statement().node<FunctionDeclaration>();
}

Labels labelsOf(std::span<const Parameter> parameters) {
  Labels labels;
  labels.reserve(parameters.size());
  for (const Parameter& parameter : parameters) {
    labels.push_back(parameter.isLabelled ? Label(parameter.label) : Label());
  }
  return labels;
}

std::uint64_t bitsOf(std::span<const Parameter> parameters) {
  return Bindings::bitsOf(parameters.size(), [&](std::size_t index) -> const String& {  //
    return parameters[index].name;
  });
}

}  // namespace

Function::Function(FunctionDeclaration declaration, Ref<Environment> closure)
    : Function(Statement(std::move(declaration)).node_, std::move(closure)) {
}

Function::Function(Ref<const Node> declaration, Ref<Environment> closure)
    : declaration_(std::move(declaration)),
      labels_(labelsOf(nodeOf(*this).parameters())),
      parameterBits_(bitsOf(nodeOf(*this).parameters())),
      closure_(std::move(closure)) {
  isDeclared_ = true;
}

FunctionDeclaration Function::declaration() const {
  return recordOf(nodeOf(*this));
}

String Function::name() const {
  return nodeOf(*this).name;
}

Value Function::call(Interpreter& interpreter, Arguments arguments, const ReportError&) const {
  return interpreter.call(*this, arguments);
}

String Function::description() const {
  StringBuilder text;
  text.append("func ").append(name()).append("(");
  const std::span<const Parameter> parameters = nodeOf(*this).parameters();
  for (const Parameter& parameter : parameters) {
    if (&parameter != &parameters.front()) text.append(":");
    text.append(parameter.label);
  }
  return text.append(")").build();
}

}  // namespace velto
