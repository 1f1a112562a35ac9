// The source of a tree.
#include <charconv>
#include <cmath>
#include <string>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Utf8.h"
#include "support/TreeText.h"

namespace velto::fuzz {
namespace {

/// Writes one token a line, so that none joins the next one. A semicolon stands wherever one may, so that nothing is
/// continued by what follows.
class Source final : public StatementVisitor, public ExpressionVisitor {
 public:
  std::string text;

  void write(const Statements& statements) {
    for (const Statement& statement : statements) statement.accept(*this);
  }
  void finish() {
    if (isInCode_) closeTag();
  }

  void visitBreak(const Break&) override { words({"break", ";"}); }
  void visitCase(const Case& node) override {
    word("case");
    if (const Token* type = std::get_if<Token>(&node.pattern)) {
      words({"is", type->lexeme});
    } else {
      write(std::get<Expression>(node.pattern));
    }
    word(":");
    write(node.body);
    word("break");
  }
  void visitContinue(const Continue&) override { words({"continue", ";"}); }
  void visitExpressionBlock(const ExpressionBlock& node) override {
    if (!isInCode_) openTag();
    closeTag();
    text.append("<%=");
    isInCode_ = true;
    write(node.expression);
    word(";");
  }
  void visitExpressionStatement(const ExpressionStatement& node) override {
    write(node.expression);
    word(";");
  }
  void visitFor(const For& node) override {
    word("for");
    visitTuple(node.tuple);
    word("in");
    write(node.sequence);
    word(";");
    write(node.body);
    word("end");
  }
  void visitFunctionDeclaration(const FunctionDeclaration& node) override {
    words({"func", node.name.lexeme, "("});
    for (const FunctionParameter& parameter : node.parameters) {
      if (&parameter != &node.parameters.front()) word(",");
      word(parameter.label.lexeme);
      if (!(parameter.label.range == parameter.name.range)) word(parameter.name.lexeme);
    }
    word(")");
    write(node.body);
    word("end");
  }
  void visitIf(const If& node) override {
    writeBranch(node.mainBranch);
    for (const IfBranch& branch : node.elseIfBranches) {
      word("else");
      writeBranch(branch);
    }
    if (node.elseBranch) {
      words({"else", ";"});
      write(node.elseBranch->statements);
    }
    word("end");
  }
  void visitInclude(const Include& node) override {
    word("include");
    write(node.file);
    word(";");
  }
  void visitReturn(const Return& node) override {
    word("return");
    if (node.value) {
      write(*node.value);
    } else {
      word(";");
    }
  }
  void visitSwitch(const Switch& node) override {
    word("switch");
    write(node.expr);
    word(";");
    for (const Case& clause : node.cases) visitCase(clause);
    if (!node.defaultBody.empty()) {
      words({"default", ":"});
      write(node.defaultBody);
    }
    word("end");
  }
  void visitVariableDeclaration(const VariableDeclaration& node) override {
    words({"var", node.name.lexeme});
    if (node.initializer) {
      word("=");
      write(*node.initializer);
    }
    word(";");
  }
  /// What is cut off at both ends belongs to the tags.
  void visitVerbatim(const Verbatim& node) override {
    if (!isInCode_) openTag();
    closeTag();
    text.append("\n").append(node.text.view());
  }
  void visitWhile(const While& node) override {
    word("while");
    write(node.condition);
    word(";");
    write(node.body);
    word("end");
  }

  void visitArrayLiteral(const ArrayLiteral& node) override {
    word("[");
    for (const Expression& element : node.elements) {
      if (&element != &node.elements.front()) word(",");
      write(element);
    }
    word("]");
  }
  void visitAssignment(const Assignment& node) override {
    words({node.name.lexeme, "="});
    write(node.value);
    word(";");
  }
  void visitBinary(const Binary& node) override { writeOperation(node); }
  void visitCall(const Call& node) override {
    write(node.callee);
    word("(");
    for (const Call::Argument& argument : node.arguments) {
      if (&argument != &node.arguments.front()) word(",");
      if (argument.label) words({argument.label->lexeme, ":"});
      write(argument.value);
    }
    word(")");
  }
  void visitDictionaryLiteral(const DictionaryLiteral& node) override {
    word("[");
    if (node.elements.empty()) word(":");
    for (const auto& element : node.elements) {
      if (&element != &node.elements.front()) word(",");
      write(element.first);
      word(":");
      write(element.second);
    }
    word("]");
  }
  void visitGrouping(const Grouping& node) override {
    word("(");
    write(node.expression);
    word(")");
  }
  void visitLiteral(const Literal& node) override {
    const double* number = node.value.number();
    word(number ? numberText(*number) : std::string(node.value.description()));
  }
  void visitLogical(const Logical& node) override { writeOperation(node); }
  void visitMember(const Member& node) override {
    write(node.object);
    words({".", node.member.lexeme});
  }
  void visitTuple(const Tuple& node) override {
    word("(");
    for (const Token& name : node.names) {
      if (&name != &node.names.front()) word(",");
      word(name.lexeme);
    }
    word(")");
  }
  void visitTypeCheck(const TypeCheck& node) override {
    write(node.instance);
    words({"is", node.type.lexeme});
  }
  /// A text inside an interpolation ends the literal around it, which goes on in a literal of its own.
  void visitStringExpression(const StringExpression& node) override {
    std::string_view rest = node.literal;
    Int position = 0;
    code();
    text.append("\"");
    for (const StringExpression::Interpolation& interpolation : node.interpolations) {
      writePiece(rest.substr(0, lengthOf(rest, interpolation.position - position)));
      rest.remove_prefix(lengthOf(rest, interpolation.position - position));
      position = interpolation.position;
      text.append("\\(");
      const std::size_t before = literals_;
      write(interpolation.value);
      text.append(before == literals_ ? ")" : ")\n\"");
    }
    writePiece(rest);
    text.append("\"\n");
    ++literals_;
  }
  void visitSubscript(const Subscript& node) override {
    write(node.subscriptee);
    word("[");
    write(node.index);
    word("]");
  }
  void visitUnary(const Unary& node) override {
    word(node.operator_.lexeme);
    write(node.right);
  }
  void visitVariable(const Variable& node) override { word(node.name.lexeme); }

 private:
  void write(const Expression& expression) { expression.accept(*this); }

  template <typename Operation>
  void writeOperation(const Operation& node) {
    write(node.left);
    word(node.operator_.lexeme);
    write(node.right);
  }

  void writeBranch(const IfBranch& branch) {
    word("if");
    write(*branch.condition);
    word(";");
    write(branch.statements);
  }

  void words(std::initializer_list<std::string_view> words) {
    for (const std::string_view each : words) word(each);
  }

  void word(std::string_view lexeme) {
    code();
    text.append(lexeme).append("\n");
  }

  void code() {
    if (!isInCode_) openTag();
  }

  /// Behind a marker no "-" is one. Blanks before it would be cut, so that another tag keeps them; a tab joins no text.
  void openTag() {
    const bool hasBlank = text.ends_with(' ') || text.ends_with('\t');
    text.append(text.empty() ? "<%-\n" : hasBlank ? "<%#%><%-\n" : "\t<%-\n");
    isInCode_ = true;
  }

  void closeTag() {
    text.append("-%>");
    isInCode_ = false;
  }

  static std::string numberText(double number) {
    if (std::isinf(number)) return std::string(400, '9');
    char digits[1200];
    return std::string(digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr);
  }

  /// The bytes of so many UTF-16 code units.
  static std::size_t lengthOf(std::string_view piece, Int units) {
    std::size_t offset = 0;
    while (units > 0) units -= utf8::decode(piece, offset) > 0xFFFF ? 2 : 1;
    return offset;
  }

  void writePiece(std::string_view piece) {
    for (const Character character : Characters(piece)) {
      const bool isDelimiter = character.text() == "\\" || character.text() == "\"";
      text.append(isDelimiter ? "\\" : "").append(character.text());
    }
  }

  bool isInCode_ = false;
  std::size_t literals_ = 0;  // written so far
};

}  // namespace

std::string sourceText(const Statements& statements) {
  Source source;
  source.write(statements);
  source.finish();
  return std::move(source.text);
}

}  // namespace velto::fuzz
