#include "Velto/Parser/Packing.h"

namespace velto {

void Stretch::expectOneFile(const Point& start, const Point& end) noexcept {
  const auto cursor = [](const Point& point) {
    return Cursor{*point.file, point.position.line, point.position.column};
  };
  Range(cursor(start), cursor(end));
}

Place Packing::usual(const Token& token) noexcept {
  const String& lexeme = usualLexeme(token.type);
  expect(token.lexeme.isSameAs(lexeme) && !token.literal);
  return start(token.range, static_cast<Int>(lexeme.size()));
}

Place Packing::own(const Token& token, TokenType type) noexcept {
  expect(token.type == type && !token.literal);
  return start(token.range, columnsOf(token.lexeme));
}

std::uint32_t Packing::count(std::int64_t number) noexcept {
  expect(number >= 0 && number <= UINT32_MAX);
  return static_cast<std::uint32_t>(number);
}

}  // namespace velto
