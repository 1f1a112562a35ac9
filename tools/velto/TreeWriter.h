// Trees as JSON.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Velto/Velto.h"

namespace command {

/// Writes a statement with all that is in it as one JSON object. Trees may be deep, so it goes through them by a list
/// of its own and not by recursion: the visit of a node writes the texts between its children and leaves these for
/// later.
class TreeWriter final : private velto::StatementVisitor, private velto::ExpressionVisitor {
 public:
  std::string json(const velto::Statement& statement);

 private:
  /// A text, and the child that follows it, if there is one.
  struct Piece {
    std::string text;
    std::optional<velto::Statement> statement = std::nullopt;
    std::optional<velto::Expression> expression = std::nullopt;
  };

  void write(const Piece& piece);

  TreeWriter& begin(std::string_view kind, const velto::Range& range);
  template <typename T>
  TreeWriter& field(std::string_view name, const T& value);
  void end() { append("}"); }
  void append(std::string_view text) { pieces_.back().text += text; }

  void put(const velto::Statement& statement);
  void put(const velto::Expression& expression);
  void put(const velto::Case& node) { visitCase(node); }
  void put(const velto::Tuple& node) { visitTuple(node); }
  void put(const velto::Token& token);
  void put(const velto::String& text);
  void put(const velto::Value& value);
  void put(const velto::Call::Argument& argument);
  void put(const std::pair<velto::Expression, velto::Expression>& element);
  void put(const velto::StringExpression::Interpolation& interpolation);
  void put(const velto::Pattern& pattern);
  void put(const velto::IfBranch& branch);
  void put(const velto::FunctionParameter& parameter);
  template <typename T>
  void put(const std::optional<T>& value);
  template <typename T>
  void put(const std::vector<T>& values);

  void visitBreak(const velto::Break& node) override;
  void visitCase(const velto::Case& node) override;
  void visitContinue(const velto::Continue& node) override;
  void visitExpressionBlock(const velto::ExpressionBlock& node) override;
  void visitExpressionStatement(const velto::ExpressionStatement& node) override;
  void visitFor(const velto::For& node) override;
  void visitFunctionDeclaration(const velto::FunctionDeclaration& node) override;
  void visitIf(const velto::If& node) override;
  void visitInclude(const velto::Include& node) override;
  void visitReturn(const velto::Return& node) override;
  void visitSwitch(const velto::Switch& node) override;
  void visitVariableDeclaration(const velto::VariableDeclaration& node) override;
  void visitVerbatim(const velto::Verbatim& node) override;
  void visitWhile(const velto::While& node) override;

  void visitArrayLiteral(const velto::ArrayLiteral& node) override;
  void visitAssignment(const velto::Assignment& node) override;
  void visitBinary(const velto::Binary& node) override;
  void visitCall(const velto::Call& node) override;
  void visitDictionaryLiteral(const velto::DictionaryLiteral& node) override;
  void visitGrouping(const velto::Grouping& node) override;
  void visitLiteral(const velto::Literal& node) override;
  void visitLogical(const velto::Logical& node) override;
  void visitMember(const velto::Member& node) override;
  void visitTuple(const velto::Tuple& node) override;
  void visitTypeCheck(const velto::TypeCheck& node) override;
  void visitStringExpression(const velto::StringExpression& node) override;
  void visitSubscript(const velto::Subscript& node) override;
  void visitUnary(const velto::Unary& node) override;
  void visitVariable(const velto::Variable& node) override;

  std::string text_;
  std::vector<Piece> pieces_;   // of the node that is being visited, in order
  std::vector<Piece> pending_;  // the next one is the last
};

template <typename T>
TreeWriter& TreeWriter::field(std::string_view name, const T& value) {
  append(",\"");
  append(name);
  append("\":");
  put(value);
  return *this;
}

template <typename T>
void TreeWriter::put(const std::optional<T>& value) {
  if (value) {
    put(*value);
  } else {
    append("null");
  }
}

template <typename T>
void TreeWriter::put(const std::vector<T>& values) {
  append("[");
  for (const T& value : values) {
    if (&value != &values.front()) append(",");
    put(value);
  }
  append("]");
}

}  // namespace command
