#include "support/TokenChecks.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#include "support/Require.h"
#include "support/Scan.h"

namespace velto::fuzz {
namespace {

struct Stretch {
  std::size_t start;
  std::size_t end;
};

Stretch stretchOf(const Token& token, const SourceMap& map) {
  const auto offsets = map.offsets(token.range);
  require(offsets.has_value(), "A token stands at a place of the source.", placeOf(token.range));
  return {offsets->first, offsets->second};
}

/// Blanks and comments give no tokens.
void checkGap(std::string_view gap) {
  const std::size_t first = gap.find_first_not_of(" \t\r\n");
  require(first == gap.npos || gap.substr(first).starts_with("//"), "Nothing but blanks and comments is left out.",
          gap);
}

/// Blanks that have joined the character before them are none, so that they are left out of account.
bool areBlanks(std::string_view text) {
  return text.find_first_not_of(" \t") == text.npos;
}

/// The text of a piece of a string literal: what stands between its delimiters, by the rules for escapes.
std::string textOfPiece(std::string_view lexeme) {
  const bool isOpen = lexeme.ends_with("\\(");
  const std::string_view inner = lexeme.substr(1, lexeme.size() - (isOpen ? 3 : 2));
  std::string result;
  const Characters characters(inner);
  for (auto character = characters.begin(); character != characters.end(); ++character) {
    if ((*character).text() != "\\") {
      result.append((*character).text());
      continue;
    }
    ++character;
    const std::string_view escaped = (*character).text();
    constexpr std::string_view letters = "nrt0";
    constexpr std::string_view meanings("\n\r\t\0", 4);
    const std::size_t index = escaped.size() == 1 ? letters.find(escaped) : letters.npos;
    result.append(index != letters.npos ? meanings.substr(index, 1) : escaped);
  }
  return result;
}

void checkLiteral(const Token& token) {
  if (token.type == TokenType::number) {
    require(token.literal && token.literal->number(), "A number has its value.");
    const double value = std::strtod(std::string(token.lexeme.view()).c_str(), nullptr);
    require(*token.literal->number() == value, "A number has the value of its digits.", token.lexeme.view());
  } else if (token.type == TokenType::string) {
    require(token.literal && token.literal->string(), "A string has its text.");
    requireEqual(token.literal->string()->view(), textOfPiece(token.lexeme), "A string has the text of its lexeme.");
  } else {
    require(!token.literal, "Only numbers and strings have values.", token.lexeme.view());
  }
}

bool areOfOneStep(const Token& first, const Token& second) {
  return first.range.start() == second.range.start();
}

/// Text and tags stand close together, and so do "-" and the "%>" behind it.
bool mayBeApart(const Token& left, const Token& right) {
  const auto isText = [](const Token& token) { return token.type == TokenType::verbatim; };
  const bool isClosing = left.type == TokenType::skipWhitespaceMarker && right.type == TokenType::tagClose;
  return !isText(left) && !isText(right) && !isClosing;
}

/// Of the tokens of one step the last has the whole text. A line feed joins no character.
std::string printed(const std::vector<Token>& tokens) {
  std::string text;
  for (std::size_t index = 0; index < tokens.size(); ++index) {
    const bool isLast = index + 1 == tokens.size();
    if (!isLast && areOfOneStep(tokens[index], tokens[index + 1])) continue;
    text.append(tokens[index].lexeme.view());
    if (!isLast && mayBeApart(tokens[index], tokens[index + 1])) text.append("\n");
  }
  return text;
}

bool isTag(const Token& token) {
  return token.type == TokenType::tagOpen || token.type == TokenType::tagClose ||
         token.type == TokenType::skipWhitespaceMarker;
}

void checkCut(std::string_view whole, std::string_view left) {
  const auto isLeftOf = [&](std::string_view text) {
    return text.starts_with(left) && areBlanks(text.substr(left.size()));
  };
  require(isLeftOf(whole) || (whole.starts_with('\n') && isLeftOf(whole.substr(1))),
          "Text loses a line feed at its start and blanks at its end at most.", whole);
}

/// Whether nothing may be left of a text.
bool mayGo(std::string_view text) {
  return areBlanks(text.substr(text.starts_with('\n') ? 1 : 0));
}

}  // namespace

void checkRanges(const std::vector<Token>& tokens, const SourceMap& map) {
  Stretch last{0, 0};
  for (const Token& token : tokens) {
    const Stretch stretch = stretchOf(token, map);
    const bool isOfSameStep = stretch.start == last.start && stretch.end >= last.end;
    require(stretch.start >= last.end || isOfSameStep, "Tokens stand in order.", placeOf(token.range));
    if (stretch.start > last.end) checkGap(map.source().substr(last.end, stretch.start - last.end));
    requireEqual(token.lexeme, map.source().substr(stretch.start, stretch.end - stretch.start),
                 "A lexeme is what the source holds at its range.");
    last = stretch;
  }
  checkGap(map.source().substr(last.end));
}

void checkLiterals(const std::vector<Token>& tokens) {
  for (const Token& token : tokens) checkLiteral(token);
}

void checkPrintedAgain(const std::vector<Token>& tokens, Scanner::Mode mode) {
  const String text = printed(tokens);
  const Scanned again = scan(text, mode);
  require(again.tokens.has_value(), "Printed tokens can be scanned.", text);
  require(again.tokens->size() == tokens.size(), "As many tokens are scanned as were printed.", text);
  for (std::size_t index = 0; index < tokens.size(); ++index) {
    const Token& before = tokens[index];
    const Token& after = (*again.tokens)[index];
    require(before.type == after.type, "Printed tokens scan to the same kinds.", text);
    require(before.lexeme.view() == after.lexeme.view(), "Printed tokens keep their lexemes.", text);
  }
}

void checkUnpacked(const std::vector<Token>& packed, const std::vector<Token>& unpacked) {
  auto kept = unpacked.begin();
  for (const Token& token : packed) {
    if (isTag(token)) continue;
    const bool isText = token.type == TokenType::verbatim;
    const bool isKept = kept != unpacked.end() && kept->type == token.type && kept->range == token.range;
    require(isKept || (isText && mayGo(token.lexeme)), "Only tags and empty texts go.", token.lexeme.view());
    if (!isKept) continue;
    if (isText) {
      require(!kept->lexeme.isEmpty(), "No text that stays is empty.");
      checkCut(token.lexeme, kept->lexeme);
    } else {
      requireEqual(token.lexeme, kept->lexeme, "Code stays as it is.");
    }
    ++kept;
  }
  require(kept == unpacked.end(), "Unpacking adds nothing.");
}

}  // namespace velto::fuzz
