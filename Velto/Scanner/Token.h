// What the scanner gives the rest of the system.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Velto/Diagnostics/Range.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

enum class TokenType : std::uint8_t {
#define TOKEN(case, name, lexeme, isKeyword) case,
#include "Velto/Scanner/TokenType.def"
#undef TOKEN
};

/// The name of the case as users see it: "identifier", "break".
[[gnu::visibility("default")]] std::string_view name(TokenType type) noexcept;

/// The lexeme of the tokens of this type, shared by all of them; empty where each token has its own.
[[gnu::visibility("default")]] const String& usualLexeme(TokenType type);

/// The reserved words, each with its type.
[[gnu::visibility("default")]] const std::unordered_map<String, TokenType>& keywords();

/// One lexical unit.
struct Token {
  TokenType type;
  /// The source text from where the scanning step of this token began: a token that is added later in the same step
  /// than another one shares its beginning.
  String lexeme;
  /// What a number or string token stands for, absent for all others.
  std::optional<Value> literal;
  Range range;

  Token(TokenType type, String lexeme, std::optional<Value> literal, const Range& range) noexcept
      : type(type), lexeme(std::move(lexeme)), literal(std::move(literal)), range(range) {}
  Token(TokenType type, String lexeme, const Range& range) noexcept
      : type(type), lexeme(std::move(lexeme)), range(range) {}

  /// The name of the type, a blank and the lexeme.
  String description() const;
};

}  // namespace velto
