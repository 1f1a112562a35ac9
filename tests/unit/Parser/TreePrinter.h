// Trees as S-expressions, and a whole parse as one line of text.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/Parser.h"

namespace velto {

/// Prints each node as "(kind part part)"; with ranges, "@1:1-1:2" follows each.
class TreePrinter final : public ExpressionVisitor, public StatementVisitor {
 public:
  explicit TreePrinter(bool showsRanges = false) : showsRanges_(showsRanges) {}

  std::string text(const Expression& expression);
  std::string text(const Statement& statement);
  /// Separated by blanks.
  std::string text(const Statements& statements);

  void visitArrayLiteral(const ArrayLiteral& node) override;
  void visitAssignment(const Assignment& node) override;
  void visitBinary(const Binary& node) override;
  void visitCall(const Call& node) override;
  void visitDictionaryLiteral(const DictionaryLiteral& node) override;
  void visitGrouping(const Grouping& node) override;
  void visitLiteral(const Literal& node) override;
  void visitLogical(const Logical& node) override;
  void visitMember(const Member& node) override;
  void visitTuple(const Tuple& node) override;
  void visitTypeCheck(const TypeCheck& node) override;
  void visitStringExpression(const StringExpression& node) override;
  void visitSubscript(const Subscript& node) override;
  void visitUnary(const Unary& node) override;
  void visitVariable(const Variable& node) override;

  void visitBreak(const Break& node) override;
  void visitCase(const Case& node) override;
  void visitContinue(const Continue& node) override;
  void visitExpressionBlock(const ExpressionBlock& node) override;
  void visitExpressionStatement(const ExpressionStatement& node) override;
  void visitFor(const For& node) override;
  void visitFunctionDeclaration(const FunctionDeclaration& node) override;
  void visitIf(const If& node) override;
  void visitInclude(const Include& node) override;
  void visitReturn(const Return& node) override;
  void visitSwitch(const Switch& node) override;
  void visitVariableDeclaration(const VariableDeclaration& node) override;
  void visitVerbatim(const Verbatim& node) override;
  void visitWhile(const While& node) override;

 private:
  std::string body(const Statements& statements);
  std::string branch(const IfBranch& branch);
  void give(const std::string& text, const Range& range);

  bool showsRanges_;
  std::string result_;
};

/// "1:1-2:3": where it starts and where it ends.
std::string text(const Range& range);

/// The tokens of a program, or of a template behind the unpacker.
std::vector<Token> programTokens(std::string_view source);
std::vector<Token> templateTokens(std::string_view source);

/// The trees, and behind " ! " each message with its range: "a ! 1:3-1:4 Expected expression."; "(dropped)" ends
/// it if there were messages but no `hadError`.
std::string parsed(std::vector<Token> tokens);
std::string parsedProgram(std::string_view source);
std::string parsedTemplate(std::string_view source);
/// The trees with all ranges.
std::string parsedRanges(std::string_view source);

struct Row {
  std::string_view source;
  std::string_view expected;
};

void expectRows(const std::vector<Row>& rows, std::string (*actual)(std::string_view));

}  // namespace velto
