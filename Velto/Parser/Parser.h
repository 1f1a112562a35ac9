// Tokens into statements, by recursive descent.
#pragma once

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
  using Types = std::initializer_list<TokenType>;
  enum class Precedence;

  // Parser.cpp: the frame, errors and recovery
  Statements body(Types stops);
  void parseInto(Statements& body);
  // Asked for every token several times.
  [[gnu::always_inline]] bool isAt(Types types) const noexcept {
    const Token* token = tokens_.current();
    if (!token) return false;
    for (const TokenType type : types) {
      if (token->type == type) return true;
    }
    return false;
  }
  /// Looks at the token behind the current one.
  bool isNext(TokenType type) const noexcept {
    const Token* token = tokens_.next();
    return token && token->type == type;
  }
  [[gnu::always_inline]] bool match(Types types) {
    if (!isAt(types)) return false;
    ++tokens_.index;
    return true;
  }
  /// Behind the end a type that no token has.
  TokenType currentType() const noexcept {
    const Token* token = tokens_.current();
    return token ? token->type : TokenType::noop;
  }
  /// There must be a token.
  const Token& advance() noexcept {
    const Token* token = tokens_.current();
    ++tokens_.index;
    return *token;
  }
  /// The node of a record with these parts, but without the record, if it can be told without it.
  template <typename Record, typename... Parts>
  static auto node(const Parts&... parts);
  /// The same with a range from where one thing begins to where another one ends. It stands apart, so that those who
  /// recurse take no room for it.
  template <typename Record, typename First, typename Last, typename... Parts>
  [[gnu::noinline]] static auto nodeSpanning(const First& first, const Last& last, const Parts&... parts);
  void matchSemicolon() { match({TokenType::semicolon}); }
  const Token& previous() const noexcept { return *tokens_.previous(); }
  const Token& consume(TokenType type, std::string_view message);
  void synchronize();
  /// Stands where the recursion passes.
  void guardDepth() {
    if (stack_.isExhausted()) [[unlikely]]
      failTooDeep();
  }
  void failTooDeep();
  Range place() const;
  [[noreturn]] void failAtCurrent(std::string_view message);
  [[noreturn]] void fail(const Range& range, String message);

  // ParserStatements.cpp: declarations and simple statements
  Statement declaration();
  Statement functionDeclaration();
  std::vector<FunctionParameter> parameters();
  FunctionParameter parameter();
  Statement variableDeclaration(const Token& keyword);
  Statement statement();
  Statement verbatim(const Token& text);
  Statement breakStatement(const Token& keyword);
  Statement continueStatement(const Token& keyword);
  Statement includeStatement(const Token& keyword);
  Statement returnStatement(const Token& keyword);
  std::optional<Expression> returnValue();
  Statement expressionBlock(const Token& marker);
  Statement expressionStatement();
  Statements block();

  // ParserBlocks.cpp: `if`, `for`, `while` and `switch`
  Statement ifStatement(const Token& keyword);
  IfBranch conditionalBranch();
  IfBranch lastBranch();
  Statement forStatement(const Token& keyword);
  Tuple loopVariables();
  Tuple tupleRest(const Token& paren);
  Statement whileStatement(const Token& keyword);
  Statement switchStatement(const Token& keyword);
  std::vector<Case> caseClauses();
  Case caseClause(const Token& keyword);
  Pattern pattern();
  Statements defaultClause();
  Expression header();

  // ParserExpressions.cpp: assignment, operators by precedence, calls, primary expressions
  Expression expression() { return assignment(); }
  Expression assignment();
  Expression assignmentTo(const Token& name);
  Expression operation(Precedence loosest);
  [[gnu::noinline]] static Expression combination(const Expression& left, const Token& operator_,
                                                  const Expression& right);
  static Precedence precedence(TokenType type) noexcept;
  static Precedence nextTighter(Precedence level) noexcept;
  Expression typeCheck(const Expression& instance, const Token& is);
  Expression unary();
  Expression finishUnary(const Token& operator_, const Expression& right);
  Expression call();
  Expression finishCall(const Expression& callee, const Token& paren);
  Call::Argument argument();
  Expression subscript(const Expression& subscriptee, const Token& bracket);
  Expression member(const Expression& object, const Token& dot);
  Expression primary();
  Expression variable(const Token& name);
  Expression grouping(const Token& paren);

  // ParserLiterals.cpp: constants, strings, arrays and dictionaries
  Expression numberLiteral(const Token& number);
  Expression stringLiteral(const Token& first);
  Expression interpolatedString(const Token& first);
  Expression collectionLiteral(const Token& bracket);
  Expression dictionaryRest(const Token& bracket, const Expression& firstKey);
  Expression arrayRest(const Token& bracket, const Expression& first);

  ScannableArray<Token> tokens_;
  std::shared_ptr<Logger> logger_;
  bool hadError_ = false;
  StackGuard stack_;
};

}  // namespace velto
