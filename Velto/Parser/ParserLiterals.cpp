// Literals: numbers, strings with their interpolations, arrays and dictionaries.
#include "Velto/Parser/ParserInline.h"

namespace velto {

namespace {

/// A scanner always gives a string token its text.
const String& textOf(const Token& token) {
  const String* text = token.literal ? token.literal->string() : nullptr;
  if (!text) fatalError("Expected a string literal.");
  return *text;
}

}  // namespace

Expression Parser::numberLiteral(const Token& number) {
  if (!number.literal) fatalError("Expected a number literal.");
  return node<Literal>(number.range, *number.literal);
}

Expression Parser::stringLiteral(const Token& first) {
  const String& text = textOf(first);
  if (isAt({TokenType::stringInterpolation})) return interpolatedString(first);
  return node<StringExpression>(first.range, text, std::vector<StringExpression::Interpolation>());
}

/// The pieces are joined, and each value remembers how much text stands before it.
Expression Parser::interpolatedString(const Token& first) {
  StringBuilder literal;
  literal.append(textOf(first));
  Int position = textOf(first).utf16Length();
  std::vector<StringExpression::Interpolation> interpolations;
  while (match({TokenType::stringInterpolation})) {
    interpolations.push_back({position, expression()});
    consume(TokenType::rightParen, "Expected ')' after string interpolation.");
    const String& piece = textOf(consume(TokenType::string, "Expexted string continuation."));
    literal.append(piece);
    position += piece.utf16Length();
  }
  return node<StringExpression>(first.range, literal.build(), interpolations);
}

/// What follows the first element tells an array from a dictionary.
Expression Parser::collectionLiteral(const Token& bracket) {
  if (match({TokenType::colon})) {
    const Token& close = consume(TokenType::rightSquareBracket, "Expect ']' after ':'.");
    return nodeSpanning<DictionaryLiteral>(bracket, close, std::vector<std::pair<Expression, Expression>>());
  }
  if (match({TokenType::rightSquareBracket})) {
    return nodeSpanning<ArrayLiteral>(bracket, previous(), std::vector<Expression>());
  }
  const Expression first = expression();
  if (match({TokenType::colon})) return dictionaryRest(bracket, first);
  if (match({TokenType::comma})) return arrayRest(bracket, first);
  if (match({TokenType::rightSquareBracket})) {
    return nodeSpanning<ArrayLiteral>(bracket, previous(), std::vector{first});
  }
  failAtCurrent("Expected ',', ':' or ']'.");
}

Expression Parser::dictionaryRest(const Token& bracket, const Expression& firstKey) {
  std::vector<std::pair<Expression, Expression>> elements{{firstKey, expression()}};
  while (match({TokenType::comma})) {
    Expression key = expression();
    consume(TokenType::colon, "Expected ':'.");
    elements.emplace_back(std::move(key), expression());
  }
  const Token& close = consume(TokenType::rightSquareBracket, "Expected ']'.");
  return nodeSpanning<DictionaryLiteral>(bracket, close, elements);
}

Expression Parser::arrayRest(const Token& bracket, const Expression& first) {
  std::vector<Expression> elements{first};
  do {
    elements.push_back(expression());
  } while (match({TokenType::comma}));
  const Token& close = consume(TokenType::rightSquareBracket, "Expected ']'.");
  return nodeSpanning<ArrayLiteral>(bracket, close, elements);
}

}  // namespace velto
