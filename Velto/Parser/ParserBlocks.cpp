// The block statements: `if`, `for`, `while` and `switch`.
#include "Velto/Parser/ParserInline.h"

namespace velto {

/// The expression behind the keyword of a block.
Expression Parser::header() {
  Expression value = expression();
  matchSemicolon();
  return value;
}

Statement Parser::ifStatement(const Token& keyword) {
  const IfBranch mainBranch = conditionalBranch();
  const Token& last = previous();
  std::vector<IfBranch> elseIfBranches;
  std::optional<IfBranch> elseBranch;
  while (match({TokenType::else_})) {
    if (match({TokenType::if_})) {
      elseIfBranches.push_back(conditionalBranch());
    } else {
      elseBranch = lastBranch();
    }
  }
  consume(TokenType::end, "Expect 'end' after if.");
  return nodeSpanning<If>(keyword, last, mainBranch, elseIfBranches, elseBranch);
}

IfBranch Parser::conditionalBranch() {
  Expression condition = header();
  return {std::move(condition), body({TokenType::end, TokenType::else_})};
}

/// An `else` without `if` runs up to the `end`, so that no other can follow it.
IfBranch Parser::lastBranch() {
  matchSemicolon();
  return {std::nullopt, body({TokenType::end})};
}

Statement Parser::forStatement(const Token& keyword) {
  Tuple variables = loopVariables();
  consume(TokenType::in, "Expect 'in' after for loop identifier.");
  Expression sequence = header();
  Statements statements = block();
  return nodeSpanning<For>(keyword, previous(), variables, sequence, statements);
}

Tuple Parser::loopVariables() {
  if (match({TokenType::leftParen})) return tupleRest(previous());
  const Token& name = consume(TokenType::identifier, "Expect identifier");
  return Tuple{.range = name.range, .names = {name}};
}

Tuple Parser::tupleRest(const Token& paren) {
  std::vector<Token> names;
  do {
    names.push_back(consume(TokenType::identifier, "Expected identifier in tuple."));
  } while (match({TokenType::comma}));
  const Token& close = consume(TokenType::rightParen, "Expected ')' closing tuple.");
  return Tuple{.range = spanning(paren.range, close.range), .names = std::move(names)};
}

Statement Parser::whileStatement(const Token& keyword) {
  Expression condition = header();
  Statements statements = block();
  return nodeSpanning<While>(keyword, previous(), condition, statements);
}

Statement Parser::switchStatement(const Token& keyword) {
  Expression subject = header();
  std::vector<Case> cases = caseClauses();
  Statements defaultBody = defaultClause();
  const Token& close = consume(TokenType::end, "Expect 'end' after switch.");
  return nodeSpanning<Switch>(keyword, close, subject, cases, defaultBody);
}

std::vector<Case> Parser::caseClauses() {
  std::vector<Case> cases;
  while (match({TokenType::case_})) cases.push_back(caseClause(previous()));
  return cases;
}

/// A `break` ends the clause and goes into no node; it is what makes an empty clause.
Case Parser::caseClause(const Token& keyword) {
  Pattern matched = pattern();
  const Token& colon = consume(TokenType::colon, "Expect ':' after case.");
  Statements statements = body({TokenType::case_, TokenType::break_, TokenType::default_, TokenType::end});
  if (!match({TokenType::break_}) && statements.empty()) {
    fail(keyword.range, "'case' should have at least one statement.");
  }
  return {spanning(keyword.range, colon.range), std::move(matched), std::move(statements)};
}

Pattern Parser::pattern() {
  if (match({TokenType::is})) return consume(TokenType::identifier, "Expect identifier after 'is'.");
  return expression();
}

/// Nothing but a `break` and the `end` stops it, so it must be the last clause.
Statements Parser::defaultClause() {
  if (!match({TokenType::default_})) return {};
  const Token& keyword = previous();
  consume(TokenType::colon, "Expect ':' after default.");
  Statements statements = body({TokenType::break_, TokenType::end});
  if (!match({TokenType::break_}) && statements.empty()) {
    fail(keyword.range, "'default' should have at least one statement.");
  }
  return statements;
}

}  // namespace velto
