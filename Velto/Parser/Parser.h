// Tokens into statements: recursive descent, one private operation for each rule of the grammar.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/StackGuard.h"
#include "Velto/Scanner/Scannable.h"
#include "Velto/Scanner/Token.h"

namespace [[gnu::visibility("default")]] velto {

/// Parses what `Unpacker` left, once. A syntax error is reported, and parsing goes on at the next likely statement, so
/// that one pass finds many.
class Parser {
 public:
  Parser(std::vector<Token> tokens, std::shared_ptr<Logger> logger);

  /// The statements that could be built.
  Statements parse();

  /// Whether a syntax error was found.
  bool hadError() const noexcept { return hadError_; }

 private:
  // Parser.cpp: the frame, errors and recovery
  void parseInto(Statements& body);
  Statements body(std::initializer_list<TokenType> stops);
  bool isAt(std::initializer_list<TokenType> types) const noexcept;
  bool match(std::initializer_list<TokenType> types);
  const Token& previous() const noexcept { return *tokens_.previous(); }
  Token consume(TokenType type, std::string_view message);
  void synchronize();
  [[noreturn]] void fail(const Range& range, String message);
  void guardDepth();

  // ParserStatements.cpp: declarations and statements
  Statement declaration();
  Statement functionDeclaration();
  std::vector<FunctionParameter> parameters();
  FunctionParameter parameter();
  Statement variableDeclaration();
  Statement statement();
  Statement returnStatement(const Token& keyword);
  Statement expressionBlock(const Token& marker);
  Statement expressionStatement();
  Statements block();

  // ParserBlocks.cpp: `if`, `for`, `while` and `switch`
  Statement ifStatement(const Token& keyword);
  Statement forStatement(const Token& keyword);
  Tuple loopVariables();
  Tuple tupleRest(const Token& paren);
  Statement whileStatement(const Token& keyword);
  Statement switchStatement(const Token& keyword);
  std::vector<Case> caseClauses();
  Case caseClause(const Token& keyword);
  Pattern pattern();
  Statements defaultClause();

  // ParserExpressions.cpp: the ladder of precedence, loosest first
  Expression expression() { return assignment(); }
  Expression assignment();
  Expression logicalOr();
  Expression logicalAnd();
  Expression equality();
  Expression comparison();
  Expression typeCheck();
  Expression rangeExpression();
  Expression addition();
  Expression multiplication();
  Expression unary();
  Expression call();
  Expression finishCall(const Expression& callee, const Token& paren);
  Call::Argument argument();
  Expression primary();
  Expression grouping(const Token& paren);
  template <typename Record>
  Expression leftAssociative(Expression (Parser::*operand)(), std::initializer_list<TokenType> operators);

  // ParserLiterals.cpp: strings, arrays and dictionaries
  Expression stringLiteral(const Token& first);
  Expression collectionLiteral(const Token& bracket);
  Expression dictionaryRest(const Token& bracket, Expression firstKey);
  Expression arrayRest(const Token& bracket, Expression first);

  ScannableArray<Token> tokens_;
  std::shared_ptr<Logger> logger_;
  bool hadError_ = false;
  StackGuard stack_;
};

}  // namespace velto
