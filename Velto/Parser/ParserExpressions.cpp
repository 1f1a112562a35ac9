// Expressions: assignment, the operators by precedence, calls and the primary ones.
#include "Velto/Parser/Parser.h"

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

namespace {

Expression combination(const Expression& left, const Token& operator_, const Expression& right) {
  const Range range = spanning(left.range(), right.range());
  if (operator_.type == TokenType::or_ || operator_.type == TokenType::and_) {
    return Logical{.range = range, .left = left, .operator_ = operator_, .right = right};
  }
  return Binary{.range = range, .left = left, .operator_ = operator_, .right = right};
}

}  // namespace

Expression Parser::assignment() {
  guardDepth();
  Expression left = operation(Precedence::or_);
  if (!match({TokenType::assign})) return left;
  return finishAssignment(left, previous());
}

/// The value is read first, so its errors come before that of the target. The semicolon behind an assignment is taken
/// wherever it stands.
Expression Parser::finishAssignment(const Expression& target, const Token& equals) {
  const Expression value = assignment();
  const Variable* variable = target.as<Variable>();
  if (!variable) fail(equals.range, "Invalid assignment target.");
  matchSemicolon();
  return Assignment{.range = spanning(target.range(), value.range()), .name = variable->name, .value = value};
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

Parser::Precedence Parser::nextTighter(Precedence level) noexcept {
  return static_cast<Precedence>(static_cast<int>(level) + 1);
}

Expression Parser::typeCheck(const Expression& instance, const Token& is) {
  const Token& type = consume(TokenType::identifier, "Expected type.");
  return TypeCheck{.range = spanning(instance.range(), type.range), .instance = instance, .is = is, .type = type};
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
  return Unary{.range = spanning(operator_.range, right.range()), .operator_ = operator_, .right = right};
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
  return Call{.range = spanning(callee.range(), close.range),
              .callee = callee,
              .paren = paren,
              .arguments = std::move(arguments)};
}

/// The one place that looks two tokens ahead: an identifier is a label only if a colon follows.
Call::Argument Parser::argument() {
  const Token* next = tokens_.next();
  if (!isAt({TokenType::identifier}) || !next || next->type != TokenType::colon) return {std::nullopt, expression()};
  const Token& label = consume(TokenType::identifier, "Expect label.");
  consume(TokenType::colon, "Expect colon after argument label.");
  return {label, expression()};
}

Expression Parser::subscript(const Expression& subscriptee, const Token& bracket) {
  const Expression index = expression();
  const Token& close = consume(TokenType::rightSquareBracket, "Expect ']' after subscript expression.");
  return Subscript{.range = spanning(subscriptee.range(), close.range),
                   .subscriptee = subscriptee,
                   .bracket = bracket,
                   .index = index};
}

Expression Parser::member(const Expression& object, const Token& dot) {
  const Token& name = consume(TokenType::identifier, "Expect identifier after '.'.");
  return Member{.range = spanning(object.range(), name.range), .object = object, .dot = dot, .member = name};
}

Expression Parser::primary() {
  switch (currentType()) {
    case TokenType::false_:
      return Literal{.range = advance().range, .value = false};
    case TokenType::true_:
      return Literal{.range = advance().range, .value = true};
    case TokenType::nil:
      return Literal{.range = advance().range, .value = Value::nil()};
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
  return Variable{.range = name.range, .name = name};
}

Expression Parser::grouping(const Token& paren) {
  const Expression inner = expression();
  const Token& close = consume(TokenType::rightParen, "Expected ')' after expression.");
  return Grouping{.range = spanning(paren.range, close.range), .expression = inner};
}

}  // namespace velto
