// Names in other spellings.
#include "Velto/Library/WordCase.h"

#include "Velto/Library/StringForms.h"
#include "Velto/Platform/Unicode.h"

namespace velto {

namespace {

bool isLetter(Character character) {
  return unicode::isLetter(character.firstScalar());
}

// Each character is mapped by itself, so that no context changes it.

String lowercased(Character character) {
  return unicode::lowercased(String::fromWellFormed(character.text()));
}

String uppercased(Character character) {
  return unicode::uppercased(String::fromWellFormed(character.text()));
}

String camelCased(const String& text, bool capitalizeFirst) {
  const String trimmed = trimmingWhitespace(text);
  StringBuilder result;
  bool first = true;
  CharacterType previous = CharacterType::invalid;
  for (const Character character : Characters(trimmed)) {
    const CharacterType type = characterType(character);
    if (type != CharacterType::invalid && type != CharacterType::space) {
      const bool needsUnderscore = first && !isLetter(character);
      const bool beginsWord = (first && capitalizeFirst) || previous == CharacterType::space ||
                              (previous == CharacterType::lowercase && type == CharacterType::uppercase);
      if (needsUnderscore) result.append("_");
      result.append(beginsWord && !needsUnderscore ? uppercased(character) : lowercased(character));
      first = false;
    }
    previous = type;
  }
  if (first) result.append("_0");
  return result.build();
}

}  // namespace

CharacterType characterType(Character character) {
  const char32_t scalar = character.firstScalar();
  if (unicode::isWhitespaceOrNewline(scalar)) return CharacterType::space;
  if (!unicode::isAlphanumeric(scalar)) return CharacterType::invalid;
  if (unicode::isUppercaseLetter(scalar)) return CharacterType::uppercase;
  if (unicode::isLowercaseLetter(scalar)) return CharacterType::lowercase;
  return CharacterType::other;
}

String lowerCamelCased(const String& text) {
  return camelCased(text, false);
}

String upperCamelCased(const String& text) {
  return camelCased(text, true);
}

String snakeCased(const String& text) {
  const String trimmed = trimmingWhitespace(text);
  StringBuilder result;
  bool first = true;
  bool afterSeparator = false;
  for (const Character character : Characters(trimmed)) {
    const CharacterType type = characterType(character);
    if (type == CharacterType::space || type == CharacterType::invalid) {
      if (!afterSeparator) result.append("_");
      afterSeparator = true;
      continue;
    }
    result.append(first && !isLetter(character) ? String("_") : lowercased(character));
    first = false;
    afterSeparator = false;
  }
  return result.build();
}

}  // namespace velto
