#include "Velto/Interpreter/Function.h"

#include <algorithm>

#include "Velto/Interpreter/Interpreter.h"

namespace velto {

namespace {

Labels labelsOf(const FunctionDeclaration& declaration) {
  Labels labels;
  labels.reserve(declaration.parameters.size());
  for (const FunctionParameter& parameter : declaration.parameters) {
    const bool isUnlabelled = parameter.label.type == TokenType::underscore;
    labels.push_back(isUnlabelled ? Label() : Label(parameter.label.lexeme));
  }
  return labels;
}

}  // namespace

Function::Function(FunctionDeclaration declaration, Ref<Environment> closure)
    : declaration_(std::move(declaration)), labels_(labelsOf(declaration_)), closure_(std::move(closure)) {
}

Value Function::call(Interpreter& interpreter, Arguments arguments, const ReportError&) const {
  // The scope hangs on the declaring scope, not on the caller's.
  Ref<Environment> environment = interpreter.makeScope(closure_.get());
  const std::size_t count = std::min(declaration_.parameters.size(), arguments.size());
  for (std::size_t index = 0; index < count; ++index) {
    const Token& name = declaration_.parameters[index].name;
    if (!environment->values.add(name.lexeme, arguments[index])) environment->define(name, arguments[index]);
  }
  interpreter.executeBlock(declaration_.body, std::move(environment));
  return interpreter.takeReturnValue();
}

String Function::description() const {
  StringBuilder text;
  text.append("func ").append(name()).append("(");
  for (const FunctionParameter& parameter : declaration_.parameters) {
    if (&parameter != &declaration_.parameters.front()) text.append(":");
    text.append(parameter.label.lexeme);
  }
  return text.append(")").build();
}

}  // namespace velto
