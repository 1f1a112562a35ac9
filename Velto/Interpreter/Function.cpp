#include "Velto/Interpreter/Function.h"

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

std::uint64_t bitsOf(const std::vector<FunctionParameter>& parameters) {
  return Bindings::bitsOf(parameters.size(), [&](std::size_t index) -> const String& {  //
    return parameters[index].name.lexeme;
  });
}

}  // namespace

Function::Function(FunctionDeclaration declaration, Ref<Environment> closure)
    : declaration_(std::move(declaration)),
      labels_(labelsOf(declaration_)),
      parameterBits_(bitsOf(declaration_.parameters)),
      closure_(std::move(closure)) {
  isDeclared_ = true;
}

Value Function::call(Interpreter& interpreter, Arguments arguments, const ReportError&) const {
  return interpreter.call(*this, arguments);
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
