// Trees as JSON: the fields of each kind of node, in their order.
#include "TreeWriter.h"

namespace command {

void TreeWriter::visitBreak(const velto::Break& node) {
  begin("Break", node.range()).field("token", node.token).end();
}

void TreeWriter::visitCase(const velto::Case& node) {
  begin("Case", node.range).field("pattern", node.pattern).field("body", node.body).end();
}

void TreeWriter::visitContinue(const velto::Continue& node) {
  begin("Continue", node.range()).field("token", node.token).end();
}

void TreeWriter::visitExpressionBlock(const velto::ExpressionBlock& node) {
  begin("ExpressionBlock", node.range).field("expression", node.expression).end();
}

void TreeWriter::visitExpressionStatement(const velto::ExpressionStatement& node) {
  begin("ExpressionStatement", node.range()).field("expression", node.expression).end();
}

void TreeWriter::visitFor(const velto::For& node) {
  begin("For", node.range).field("tuple", node.tuple).field("sequence", node.sequence).field("body", node.body).end();
}

void TreeWriter::visitFunctionDeclaration(const velto::FunctionDeclaration& node) {
  begin("FunctionDeclaration", node.range)
      .field("name", node.name)
      .field("parameters", node.parameters)
      .field("body", node.body)
      .end();
}

void TreeWriter::visitIf(const velto::If& node) {
  begin("If", node.range)
      .field("mainBranch", node.mainBranch)
      .field("elseIfBranches", node.elseIfBranches)
      .field("elseBranch", node.elseBranch)
      .end();
}

void TreeWriter::visitInclude(const velto::Include& node) {
  begin("Include", node.range()).field("include", node.include).field("file", node.file).end();
}

void TreeWriter::visitReturn(const velto::Return& node) {
  begin("Return", node.range).field("keyword", node.keyword).field("value", node.value).end();
}

void TreeWriter::visitSwitch(const velto::Switch& node) {
  begin("Switch", node.range)
      .field("expr", node.expr)
      .field("cases", node.cases)
      .field("defaultBody", node.defaultBody)
      .end();
}

void TreeWriter::visitVariableDeclaration(const velto::VariableDeclaration& node) {
  begin("VariableDeclaration", node.range).field("name", node.name).field("initializer", node.initializer).end();
}

void TreeWriter::visitVerbatim(const velto::Verbatim& node) {
  begin("Verbatim", node.range).field("text", node.text).end();
}

void TreeWriter::visitWhile(const velto::While& node) {
  begin("While", node.range).field("condition", node.condition).field("body", node.body).end();
}

void TreeWriter::visitArrayLiteral(const velto::ArrayLiteral& node) {
  begin("ArrayLiteral", node.range).field("elements", node.elements).end();
}

void TreeWriter::visitAssignment(const velto::Assignment& node) {
  begin("Assignment", node.range).field("name", node.name).field("value", node.value).end();
}

void TreeWriter::visitBinary(const velto::Binary& node) {
  begin("Binary", node.range)
      .field("left", node.left)
      .field("operator", node.operator_)
      .field("right", node.right)
      .end();
}

void TreeWriter::visitCall(const velto::Call& node) {
  begin("Call", node.range)
      .field("callee", node.callee)
      .field("paren", node.paren)
      .field("arguments", node.arguments)
      .end();
}

void TreeWriter::visitDictionaryLiteral(const velto::DictionaryLiteral& node) {
  begin("DictionaryLiteral", node.range).field("elements", node.elements).end();
}

void TreeWriter::visitGrouping(const velto::Grouping& node) {
  begin("Grouping", node.range).field("expression", node.expression).end();
}

void TreeWriter::visitLiteral(const velto::Literal& node) {
  begin("Literal", node.range).field("value", node.value).end();
}

void TreeWriter::visitLogical(const velto::Logical& node) {
  begin("Logical", node.range)
      .field("left", node.left)
      .field("operator", node.operator_)
      .field("right", node.right)
      .end();
}

void TreeWriter::visitMember(const velto::Member& node) {
  begin("Member", node.range).field("object", node.object).field("dot", node.dot).field("member", node.member).end();
}

void TreeWriter::visitTuple(const velto::Tuple& node) {
  begin("Tuple", node.range).field("names", node.names).end();
}

void TreeWriter::visitTypeCheck(const velto::TypeCheck& node) {
  begin("TypeCheck", node.range).field("instance", node.instance).field("is", node.is).field("type", node.type).end();
}

void TreeWriter::visitStringExpression(const velto::StringExpression& node) {
  begin("StringExpression", node.range)
      .field("literal", node.literal)
      .field("interpolations", node.interpolations)
      .end();
}

void TreeWriter::visitSubscript(const velto::Subscript& node) {
  begin("Subscript", node.range)
      .field("subscriptee", node.subscriptee)
      .field("bracket", node.bracket)
      .field("index", node.index)
      .end();
}

void TreeWriter::visitUnary(const velto::Unary& node) {
  begin("Unary", node.range).field("operator", node.operator_).field("right", node.right).end();
}

void TreeWriter::visitVariable(const velto::Variable& node) {
  begin("Variable", node.range).field("name", node.name).end();
}

}  // namespace command
