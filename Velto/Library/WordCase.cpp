// Names in other spellings.
#include "Velto/Library/WordCase.h"

#include <array>

#include "Velto/Library/StringForms.h"
#include "Velto/Platform/Unicode.h"

namespace velto {

namespace {

/// A character of any text. Each is mapped by itself, so that no context changes it.
class Letter {
 public:
  Letter(Character character) noexcept : character_(character) {}

  CharacterType type() const noexcept { return characterType(character_); }
  bool isLetter() const noexcept { return unicode::isLetter(character_.firstScalar()); }
  void appendLowercased(StringBuilder& text) const { unicode::appendLowercased(character_.text(), text); }
  void appendUppercased(StringBuilder& text) const { unicode::appendUppercased(character_.text(), text); }

 private:
  Character character_;
};

constexpr CharacterType asciiType(char character) noexcept {
  if (character == ' ' || ('\n' <= character && character <= '\r')) return CharacterType::space;
  if ('0' <= character && character <= '9') return CharacterType::other;
  if (unicode::lowercasedASCII(character) != character) return CharacterType::uppercase;
  if (unicode::uppercasedASCII(character) != character) return CharacterType::lowercase;
  return CharacterType::invalid;
}

constexpr auto asciiTypes = [] {
  std::array<CharacterType, 128> types{};
  for (std::size_t code = 0; code < types.size(); ++code) types[code] = asciiType(static_cast<char>(code));
  return types;
}();

/// The same for a byte of a text that is all ASCII, where all is a matter of a small table. "\r\n" is two of them,
/// which makes no difference: both are space.
class ASCIILetter {
 public:
  ASCIILetter(char character) noexcept : character_(character) {}

  CharacterType type() const noexcept { return asciiTypes[static_cast<unsigned char>(character_)]; }
  bool isLetter() const noexcept { return type() == CharacterType::uppercase || type() == CharacterType::lowercase; }
  void appendLowercased(StringBuilder& text) const { text.append(unicode::lowercasedASCII(character_)); }
  void appendUppercased(StringBuilder& text) const { text.append(unicode::uppercasedASCII(character_)); }

 private:
  char character_;
};

template <typename AnyLetter, typename Text>
String camelCased(const Text& text, bool capitalizeFirst) {
  StringBuilder result;
  bool first = true;
  CharacterType previous = CharacterType::invalid;
  for (const AnyLetter letter : text) {
    const CharacterType type = letter.type();
    if (type != CharacterType::invalid && type != CharacterType::space) {
      const bool needsUnderscore = first && !letter.isLetter();
      const bool beginsWord = (first && capitalizeFirst) || previous == CharacterType::space ||
                              (previous == CharacterType::lowercase && type == CharacterType::uppercase);
      if (needsUnderscore) result.append('_');
      if (beginsWord && !needsUnderscore) {
        letter.appendUppercased(result);
      } else {
        letter.appendLowercased(result);
      }
      first = false;
    }
    previous = type;
  }
  if (first) result.append("_0");
  return result.build();
}

template <typename AnyLetter, typename Text>
String snakeCased(const Text& text) {
  StringBuilder result;
  bool first = true;
  bool afterSeparator = false;
  for (const AnyLetter letter : text) {
    const CharacterType type = letter.type();
    if (type == CharacterType::space || type == CharacterType::invalid) {
      if (!afterSeparator) result.append('_');
      afterSeparator = true;
      continue;
    }
    if (first && !letter.isLetter()) {
      result.append('_');
    } else {
      letter.appendLowercased(result);
    }
    first = false;
    afterSeparator = false;
  }
  return result.build();
}

String camelCased(const String& text, bool capitalizeFirst) {
  return text.isASCII() ? camelCased<ASCIILetter>(trimmed(text), capitalizeFirst)
                        : camelCasedByCharacters(text, capitalizeFirst);
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
  return text.isASCII() ? snakeCased<ASCIILetter>(trimmed(text)) : snakeCasedByCharacters(text);
}

String camelCasedByCharacters(const String& text, bool capitalizeFirst) {
  return camelCased<Letter>(Characters(trimmed(text)), capitalizeFirst);
}

String snakeCasedByCharacters(const String& text) {
  return snakeCased<Letter>(Characters(trimmed(text)));
}

}  // namespace velto
