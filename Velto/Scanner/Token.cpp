// The tables of token types: names, usual lexemes and keywords.
#include "Velto/Scanner/Token.h"

#include <array>

namespace velto {

namespace {

struct Kind {
  TokenType type;
  std::string_view name;
  std::string_view lexeme;
  bool isKeyword;
};

constexpr std::array kinds{
#define TOKEN(case, name, lexeme, isKeyword) Kind{TokenType::case, name, lexeme, isKeyword},
#include "Velto/Scanner/TokenType.def"
#undef TOKEN
};

std::array<String, kinds.size()> makeUsualLexemes() {
  std::array<String, kinds.size()> lexemes;
  for (std::size_t index = 0; index < kinds.size(); ++index) lexemes[index] = String(kinds[index].lexeme);
  return lexemes;
}

std::unordered_map<String, TokenType> makeKeywords() {
  std::unordered_map<String, TokenType> keywords;
  for (const Kind& kind : kinds) {
    if (kind.isKeyword) keywords.emplace(usualLexeme(kind.type), kind.type);
  }
  return keywords;
}

/// Made as the library is loaded, since every token asks for one.
const std::array<String, kinds.size()> usualLexemes = makeUsualLexemes();

}  // namespace

std::string_view name(TokenType type) noexcept {
  return kinds[static_cast<std::size_t>(type)].name;
}

const String& usualLexeme(TokenType type) {
  return usualLexemes[static_cast<std::size_t>(type)];
}

const std::unordered_map<String, TokenType>& keywords() {
  static const std::unordered_map<String, TokenType> keywords = makeKeywords();
  return keywords;
}

String Token::description() const {
  return String::concatenation({name(type), " ", lexeme});
}

}  // namespace velto
