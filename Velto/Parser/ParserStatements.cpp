// Declarations and simple statements.
#include <new>
#include <unordered_set>

#include "Velto/Parser/ParserInline.h"

namespace velto {

Statement Parser::declaration() {
  guardDepth();
  if (match({TokenType::func})) return functionDeclaration();
  if (match({TokenType::var})) return variableDeclaration(previous());
  return statement();
}

Statement Parser::functionDeclaration() {
  const Token& name = consume(TokenType::identifier, "Expect function name.");
  consume(TokenType::leftParen, "Expect '(' after function name.");
  std::vector<FunctionParameter> declared = parameters();
  consume(TokenType::rightParen, "Expect ')' after parameters.");
  Statements statements = block();
  return nodeSpanning<FunctionDeclaration>(name, previous(), name, declared, statements);
}

/// Only names must differ; labels may repeat.
std::vector<FunctionParameter> Parser::parameters() {
  std::vector<FunctionParameter> declared;
  if (isAt({TokenType::rightParen})) return declared;
  std::unordered_set<String> names;
  do {
    declared.push_back(parameter());
    const Token& name = declared.back().name;
    if (!names.insert(name.lexeme).second) {
      fail(name.range, String::concatenation({"Duplicate function parameters '", name.lexeme, "'."}));
    }
  } while (match({TokenType::comma}));
  return declared;
}

/// One identifier alone is label and name, "_" is a label alone.
FunctionParameter Parser::parameter() {
  const Token& label =
      match({TokenType::underscore}) ? previous() : consume(TokenType::identifier, "Expect parameter label.");
  if (match({TokenType::identifier})) return {label, previous()};
  if (label.type != TokenType::identifier) fail(label.range, "Expect parameter name.");
  return {label, label};
}

Statements Parser::block() {
  Statements statements = body({TokenType::end});
  consume(TokenType::end, "Expect 'end' after block.");
  return statements;
}

Statement Parser::variableDeclaration(const Token& keyword) {
  const Token& name = consume(TokenType::identifier, "Expect variable name.");
  std::optional<Expression> initializer;
  if (match({TokenType::assign})) initializer = expression();
  matchSemicolon();
  const Point end = initializer ? endOf(*initializer) : endOf(name);
  return node<VariableDeclaration>(Stretch(startOf(keyword), end), name, initializer);
}

Statement Parser::statement() {
  switch (currentType()) {
    case TokenType::verbatim:
      return verbatim(advance());
    case TokenType::break_:
      return breakStatement(advance());
    case TokenType::continue_:
      return continueStatement(advance());
    case TokenType::include:
      return includeStatement(advance());
    case TokenType::return_:
      return returnStatement(advance());
    case TokenType::expressionMarker:
      return expressionBlock(advance());
    case TokenType::if_:
      return ifStatement(advance());
    case TokenType::for_:
      return forStatement(advance());
    case TokenType::while_:
      return whileStatement(advance());
    case TokenType::switch_:
      return switchStatement(advance());
    default:
      return expressionStatement();
  }
}

Statement Parser::verbatim(const Token& text) {
  return node<Verbatim>(text.range, text.lexeme);
}

Statement Parser::breakStatement(const Token& keyword) {
  matchSemicolon();
  return node<Break>(keyword);
}

Statement Parser::continueStatement(const Token& keyword) {
  matchSemicolon();
  return node<Continue>(keyword);
}

Statement Parser::includeStatement(const Token& keyword) {
  Expression file = expression();
  matchSemicolon();
  return node<Include>(keyword, file);
}

/// A value is always tried, unless a semicolon stands directly behind the keyword.
Statement Parser::returnStatement(const Token& keyword) {
  if (match({TokenType::semicolon})) return node<Return>(keyword.range, keyword, std::optional<Expression>());
  std::optional<Expression> value = returnValue();
  const Point end = value ? endOf(*value) : endOf(keyword);
  return node<Return>(Stretch(startOf(keyword), end), keyword, value);
}

/// An error has been reported, but is none of the parse: the `return` stands without a value, and the tokens that were
/// read stay read.
std::optional<Expression> Parser::returnValue() {
  try {
    return expression();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    return std::nullopt;
  }
}

Statement Parser::expressionBlock(const Token& marker) {
  Expression value = expression();
  matchSemicolon();
  return node<ExpressionBlock>(UpTo(startOf(marker), value), value);
}

Statement Parser::expressionStatement() {
  Expression value = expression();
  matchSemicolon();
  return node<ExpressionStatement>(value);
}

}  // namespace velto
