// Trees as S-expressions, and a whole parse as one line of text.
#include "tests/unit/Parser/TreePrinter.h"

#include <gtest/gtest.h>

#include <utility>

#include "Velto/Scanner/Scanner.h"
#include "Velto/Scanner/Unpacker.h"

namespace velto {

namespace {

std::string str(std::string_view text) {
  return std::string(text);
}

std::string labels(const Tuple& tuple) {
  std::string text;
  for (const Token& name : tuple.names) text += (text.empty() ? "" : " ") + str(name.lexeme);
  return text;
}

}  // namespace

std::string TreePrinter::text(const Expression& expression) {
  expression.accept(*this);
  return std::exchange(result_, "");
}

std::string TreePrinter::text(const Statement& statement) {
  statement.accept(*this);
  return std::exchange(result_, "");
}

std::string TreePrinter::text(const Statements& statements) {
  std::string all;
  for (const Statement& statement : statements) all += (all.empty() ? "" : " ") + text(statement);
  return all;
}

std::string TreePrinter::body(const Statements& statements) {
  return " [" + text(statements) + "]";
}

std::string TreePrinter::branch(const IfBranch& branch) {
  return (branch.condition ? " " + text(*branch.condition) : "") + body(branch.statements);
}

void TreePrinter::give(const std::string& text, const Range& range) {
  result_ = text + (showsRanges_ ? "@" + velto::text(range) : "");
}

void TreePrinter::visitArrayLiteral(const ArrayLiteral& node) {
  std::string all = "(array";
  for (const Expression& element : node.elements) all += " " + text(element);
  give(all + ")", node.range);
}

void TreePrinter::visitAssignment(const Assignment& node) {
  give("(= " + str(node.name.lexeme) + " " + text(node.value) + ")", node.range);
}

void TreePrinter::visitBinary(const Binary& node) {
  const std::string left = text(node.left);
  give("(" + str(node.operator_.lexeme) + " " + left + " " + text(node.right) + ")", node.range);
}

void TreePrinter::visitCall(const Call& node) {
  std::string all = "(call" + str(node.paren.lexeme).substr(1) + " " + text(node.callee);
  for (const Call::Argument& argument : node.arguments) {
    all += " " + (argument.label ? str(argument.label->lexeme) + ":" : "") + text(argument.value);
  }
  give(all + ")", node.range);
}

void TreePrinter::visitDictionaryLiteral(const DictionaryLiteral& node) {
  std::string all = "(dictionary";
  for (const auto& [key, value] : node.elements) {
    all += " " + text(key);
    all += ":" + text(value);
  }
  give(all + ")", node.range);
}

void TreePrinter::visitGrouping(const Grouping& node) {
  give("(group " + text(node.expression) + ")", node.range);
}

void TreePrinter::visitLiteral(const Literal& node) {
  give(str(node.value.description()), node.range);
}

void TreePrinter::visitLogical(const Logical& node) {
  const std::string left = text(node.left);
  give("(" + str(node.operator_.lexeme) + " " + left + " " + text(node.right) + ")", node.range);
}

void TreePrinter::visitMember(const Member& node) {
  give("(" + str(node.dot.lexeme) + " " + text(node.object) + " " + str(node.member.lexeme) + ")", node.range);
}

void TreePrinter::visitTuple(const Tuple& node) {
  give("(" + labels(node) + ")", node.range);
}

void TreePrinter::visitTypeCheck(const TypeCheck& node) {
  give("(" + str(node.is.lexeme) + " " + text(node.instance) + " " + str(node.type.lexeme) + ")", node.range);
}

void TreePrinter::visitStringExpression(const StringExpression& node) {
  std::string all = "'" + str(node.literal) + "'";
  for (const auto& [position, value] : node.interpolations) all += " " + std::to_string(position) + ":" + text(value);
  give(node.interpolations.empty() ? all : "(" + all + ")", node.range);
}

void TreePrinter::visitSubscript(const Subscript& node) {
  const std::string subscriptee = text(node.subscriptee);
  give("(" + str(node.bracket.lexeme) + "] " + subscriptee + " " + text(node.index) + ")", node.range);
}

void TreePrinter::visitUnary(const Unary& node) {
  give("(" + str(node.operator_.lexeme) + " " + text(node.right) + ")", node.range);
}

void TreePrinter::visitVariable(const Variable& node) {
  give(str(node.name.lexeme), node.range);
}

void TreePrinter::visitBreak(const Break& node) {
  give(str(node.token.lexeme), node.range());
}

void TreePrinter::visitCase(const Case& node) {
  const bool isType = std::holds_alternative<Token>(node.pattern);
  const std::string pattern =
      isType ? "is " + str(std::get<Token>(node.pattern).lexeme) : text(std::get<Expression>(node.pattern));
  give("(case " + pattern + body(node.body) + ")", node.range);
}

void TreePrinter::visitContinue(const Continue& node) {
  give(str(node.token.lexeme), node.range());
}

void TreePrinter::visitExpressionBlock(const ExpressionBlock& node) {
  give("(<%= " + text(node.expression) + ")", node.range);
}

void TreePrinter::visitExpressionStatement(const ExpressionStatement& node) {
  give(text(node.expression), node.range());
}

void TreePrinter::visitFor(const For& node) {
  node.tuple.accept(*this);
  const std::string variables = std::exchange(result_, "");
  const std::string sequence = text(node.sequence);
  give("(for " + variables + " " + sequence + body(node.body) + ")", node.range);
}

void TreePrinter::visitFunctionDeclaration(const FunctionDeclaration& node) {
  std::string all = "(func " + str(node.name.lexeme) + " (";
  for (const FunctionParameter& parameter : node.parameters) {
    if (all.back() != '(') all += " ";
    all += str(parameter.label.lexeme) + ":" + str(parameter.name.lexeme);
  }
  give(all + ")" + body(node.body) + ")", node.range);
}

void TreePrinter::visitIf(const If& node) {
  std::string all = "(if" + branch(node.mainBranch);
  for (const IfBranch& elseIf : node.elseIfBranches) all += " elseif" + branch(elseIf);
  if (node.elseBranch) all += " else" + branch(*node.elseBranch);
  give(all + ")", node.range);
}

void TreePrinter::visitInclude(const Include& node) {
  give("(" + str(node.include.lexeme) + " " + text(node.file) + ")", node.range());
}

void TreePrinter::visitReturn(const Return& node) {
  give("(" + str(node.keyword.lexeme) + (node.value ? " " + text(*node.value) : "") + ")", node.range);
}

void TreePrinter::visitSwitch(const Switch& node) {
  std::string all = "(switch " + text(node.expr);
  for (const Case& clause : node.cases) {
    clause.accept(*this);
    all += " " + std::exchange(result_, "");
  }
  if (!node.defaultBody.empty()) all += " default" + body(node.defaultBody);
  give(all + ")", node.range);
}

void TreePrinter::visitVariableDeclaration(const VariableDeclaration& node) {
  give("(var " + str(node.name.lexeme) + (node.initializer ? " " + text(*node.initializer) : "") + ")", node.range);
}

void TreePrinter::visitVerbatim(const Verbatim& node) {
  give("(text " + str(node.text) + ")", node.range);
}

void TreePrinter::visitWhile(const While& node) {
  const std::string condition = text(node.condition);
  give("(while " + condition + body(node.body) + ")", node.range);
}

std::string text(const Range& range) {
  return std::to_string(range.startLine) + ":" + std::to_string(range.startColumn) + "-" +
         std::to_string(range.endLine) + ":" + std::to_string(range.endColumn);
}

std::vector<Token> programTokens(std::string_view source) {
  return Scanner(source, Scanner::Mode::program, std::make_shared<StdErrLogger>(), "a.txt").scanTokens();
}

std::vector<Token> templateTokens(std::string_view source) {
  const auto logger = std::make_shared<StdErrLogger>();
  return Unpacker(Scanner(source, logger, "a.txt").scanTokens(), logger).unpack();
}

std::string parsed(std::vector<Token> tokens) {
  const auto logger = std::make_shared<ArrayLogger>();
  Parser parser(std::move(tokens), logger);
  std::string result = TreePrinter().text(parser.parse());
  for (const Message& message : logger->messages) {
    EXPECT_EQ(message.level, Message::Level::error);
    result += (result.empty() ? "! " : " ! ") + text(message.range()) + " " + str(message.message);
  }
  if (!logger->messages.empty() && !parser.hadError()) result += " (dropped)";
  EXPECT_TRUE(parser.parse().empty());
  return result;
}

std::string parsedProgram(std::string_view source) {
  return parsed(programTokens(source));
}

std::string parsedTemplate(std::string_view source) {
  return parsed(templateTokens(source));
}

std::string parsedRanges(std::string_view source) {
  Parser parser(programTokens(source), std::make_shared<ArrayLogger>());
  return TreePrinter(true).text(parser.parse());
}

void expectRows(const std::vector<Row>& rows, std::string (*actual)(std::string_view)) {
  for (const Row& row : rows) EXPECT_EQ(actual(row.source), row.expected) << "source: " << row.source;
}

}  // namespace velto
