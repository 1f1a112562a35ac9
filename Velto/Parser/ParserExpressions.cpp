// Expressions: assignment, the operators by precedence, calls and the primary ones.
#include "Velto/Parser/ParserInline.h"

namespace velto {

/// How tightly the operators between two operands bind, loosest first.
enum class Parser::Precedence { none, or_, and_, equality, comparison, typeCheck, range, addition, multiplication };

Parser::Precedence Parser::precedence(TokenType type) noexcept {
  switch (type) {
    case TokenType::or_:
      return Precedence::or_;
    case TokenType::and_:
      return Precedence::and_;
    case TokenType::equal:
    case TokenType::notEqual:
      return Precedence::equality;
    case TokenType::greater:
    case TokenType::greaterEqual:
    case TokenType::less:
    case TokenType::lessEqual:
      return Precedence::comparison;
    case TokenType::is:
      return Precedence::typeCheck;
    case TokenType::openRange:
    case TokenType::closedRange:
      return Precedence::range;
    case TokenType::minus:
    case TokenType::plus:
      return Precedence::addition;
    case TokenType::slash:
    case TokenType::star:
      return Precedence::multiplication;
    default:
      return Precedence::none;
  }
}

/// A target is a name, and no node is made of it. Any other is told when the value has been read, so that the errors of
/// that come first.
Expression Parser::assignment() {
  guardDepth();
  if (isAt({TokenType::identifier}) && isNext(TokenType::assign)) return assignmentTo(advance());
  Expression left = operation(Precedence::or_);
  if (!match({TokenType::assign})) return left;
  const Token& equals = previous();
  assignment();
  fail(equals.range, "Invalid assignment target.");
}

/// The semicolon behind an assignment is taken wherever it stands.
Expression Parser::assignmentTo(const Token& name) {
  tokens_.advance();
  const Expression value = assignment();
  matchSemicolon();
  return nodeSpanning<Assignment>(name, value, name, value);
}

/// Operands and the operators between them that bind at least as tightly as `loosest`; equal ones fold to the left.
/// What binds tighter than an operator has gone into its right operand. `is` has none, so nothing tighter may follow
/// it.
Expression Parser::operation(Precedence loosest) {
  Expression left = unary();
  Precedence tightest = Precedence::multiplication;
  while (const Token* operator_ = tokens_.current()) {
    const Precedence level = precedence(operator_->type);
    if (level < loosest || level > tightest) break;
    tokens_.advance();
    left = level == Precedence::typeCheck ? typeCheck(left, *operator_)
                                          : combination(left, *operator_, operation(nextTighter(level)));
    tightest = level;
  }
  return left;
}

Expression Parser::combination(const Expression& left, const Token& operator_, const Expression& right) {
  const UpTo range(startOf(left), right);
  if (operator_.type == TokenType::or_ || operator_.type == TokenType::and_) {
    return node<Logical>(range, left, operator_, right);
  }
  return node<Binary>(range, left, operator_, right);
}

Parser::Precedence Parser::nextTighter(Precedence level) noexcept {
  return static_cast<Precedence>(static_cast<int>(level) + 1);
}

Expression Parser::typeCheck(const Expression& instance, const Token& is) {
  const Token& type = consume(TokenType::identifier, "Expected type.");
  return nodeSpanning<TypeCheck>(instance, type, instance, is, type);
}

/// Six prefixes are well-formed; only two of them mean something when they are evaluated.
Expression Parser::unary() {
  guardDepth();
  if (!match({TokenType::not_, TokenType::minus, TokenType::dot, TokenType::plus, TokenType::slash, TokenType::star})) {
    return call();
  }
  const Token& operator_ = previous();
  return finishUnary(operator_, unary());
}

Expression Parser::finishUnary(const Token& operator_, const Expression& right) {
  return nodeSpanning<Unary>(operator_, right, operator_, right);
}

Expression Parser::call() {
  Expression value = primary();
  while (true) {
    switch (currentType()) {
      case TokenType::leftParen:
        value = finishCall(value, advance());
        break;
      case TokenType::leftSquareBracket:
        value = subscript(value, advance());
        break;
      case TokenType::dot:
        value = member(value, advance());
        break;
      default:
        return value;
    }
  }
}

Expression Parser::finishCall(const Expression& callee, const Token& paren) {
  std::vector<Call::Argument> arguments;
  if (!isAt({TokenType::rightParen})) {
    do {
      arguments.push_back(argument());
    } while (match({TokenType::comma}));
  }
  const Token& close = consume(TokenType::rightParen, "Expect ')' after arguments.");
  return nodeSpanning<Call>(callee, close, callee, paren, arguments);
}

/// An identifier is a label only if a colon follows.
Call::Argument Parser::argument() {
  if (!isAt({TokenType::identifier}) || !isNext(TokenType::colon)) return {std::nullopt, expression()};
  const Token& label = consume(TokenType::identifier, "Expect label.");
  consume(TokenType::colon, "Expect colon after argument label.");
  return {label, expression()};
}

Expression Parser::subscript(const Expression& subscriptee, const Token& bracket) {
  const Expression index = expression();
  const Token& close = consume(TokenType::rightSquareBracket, "Expect ']' after subscript expression.");
  return nodeSpanning<Subscript>(subscriptee, close, subscriptee, bracket, index);
}

Expression Parser::member(const Expression& object, const Token& dot) {
  const Token& name = consume(TokenType::identifier, "Expect identifier after '.'.");
  return nodeSpanning<Member>(object, name, object, dot, name);
}

Expression Parser::primary() {
  switch (currentType()) {
    case TokenType::false_:
      return node<Literal>(advance().range, Value(false));
    case TokenType::true_:
      return node<Literal>(advance().range, Value(true));
    case TokenType::nil:
      return node<Literal>(advance().range, Value::nil());
    case TokenType::string:
      return stringLiteral(advance());
    case TokenType::number:
      return numberLiteral(advance());
    case TokenType::leftParen:
      return grouping(advance());
    case TokenType::leftSquareBracket:
      return collectionLiteral(advance());
    case TokenType::identifier:
      return variable(advance());
    default:
      failAtCurrent("Expected expression.");
  }
}

Expression Parser::variable(const Token& name) {
  return node<Variable>(name.range, name);
}

Expression Parser::grouping(const Token& paren) {
  const Expression inner = expression();
  const Token& close = consume(TokenType::rightParen, "Expected ')' after expression.");
  return nodeSpanning<Grouping>(paren, close, inner);
}

}  // namespace velto
