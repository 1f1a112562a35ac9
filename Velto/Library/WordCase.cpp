// Names in other spellings.
#include "Velto/Library/WordCase.h"

#include <array>
#include <utility>

#include "Velto/Library/StringForms.h"
#include "Velto/Platform/Unicode.h"

namespace velto {

namespace {

constexpr bool isSeparator(CharacterType type) noexcept {
  return type == CharacterType::space || type == CharacterType::invalid;
}

/// A character of any text. Each is mapped by itself, so that no context changes it.
class Letter {
 public:
  Letter(Character character) noexcept : character_(character) {}

  CharacterType type() const noexcept { return characterType(character_); }
  bool isLetter() const noexcept { return unicode::isLetter(character_.firstScalar()); }
  void appendLowercased(StringBuilder& text) const { unicode::appendLowercased(character_.text(), text); }
  void appendUppercased(StringBuilder& text) const { unicode::appendUppercased(character_.text(), text); }
  /// Of any text, no letter is known to be lowercase before it is looked at.
  static Characters::Iterator takeLowercase(Characters::Iterator begin, Characters::Iterator, StringBuilder&) {
    return begin;
  }

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

/// The end of a text that is being written where all of it has room.
class ASCIIEnd {
 public:
  explicit ASCIIEnd(char* end) noexcept : end_(end) {}

  void append(char character) noexcept { *end_++ = character; }
  char* get() const noexcept { return end_; }

 private:
  char* end_;
};

/// The same for a byte of a text that is all ASCII, where all is a matter of a small table. "\r\n" is two of them,
/// which makes no difference: both are space.
class ASCIILetter {
 public:
  ASCIILetter(char character) noexcept : character_(character) {}

  CharacterType type() const noexcept { return asciiTypes[static_cast<unsigned char>(character_)]; }
  bool isLetter() const noexcept { return type() == CharacterType::uppercase || type() == CharacterType::lowercase; }
  void appendLowercased(ASCIIEnd& text) const { text.append(unicode::lowercasedASCII(character_)); }
  void appendUppercased(ASCIIEnd& text) const { text.append(unicode::uppercasedASCII(character_)); }
  /// Appends the lowercase letters that come next, as they are, and gives their end.
  static const char* takeLowercase(const char* begin, const char* end, ASCIIEnd& text) noexcept {
    for (; begin != end && 'a' <= *begin && *begin <= 'z'; ++begin) text.append(*begin);
    return begin;
  }

 private:
  char character_;
};

/// At most two characters more than in the text.
template <typename AnyLetter, typename Text, typename Result>
void appendCamelCased(const Text& text, bool capitalizeFirst, Result& result) {
  bool first = true;
  CharacterType previous = CharacterType::invalid;
  for (auto place = text.begin(); place != text.end();) {
    const AnyLetter letter = *place;
    const CharacterType type = letter.type();
    ++place;
    if (isSeparator(type)) {
      previous = type;
      continue;
    }
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
    const auto end = AnyLetter::takeLowercase(place, text.end(), result);
    previous = end == place ? type : CharacterType::lowercase;
    place = end;
  }
  if (first) {
    result.append('_');
    result.append('0');
  }
}

/// At most as many characters as in the text.
template <typename AnyLetter, typename Text, typename Result>
void appendSnakeCased(const Text& text, Result& result) {
  bool first = true;
  bool afterSeparator = false;
  for (auto place = text.begin(); place != text.end();) {
    const AnyLetter letter = *place;
    ++place;
    if (isSeparator(letter.type())) {
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
    place = AnyLetter::takeLowercase(place, text.end(), result);
  }
}

/// What `append` makes of a text in ASCII, in one pass over memory of the right size.
template <typename Append>
String writtenASCII(std::size_t most, Append append) {
  return String::writtenASCII(most, [&](char* begin) {
    ASCIIEnd end(begin);
    append(end);
    return end.get();
  });
}

String camelCased(const String& text, bool capitalizeFirst) {
  if (!text.isASCII()) return camelCasedByCharacters(text, capitalizeFirst);
  const std::string_view words = trimmed(text);
  return writtenASCII(words.size() + 2,
                      [&](ASCIIEnd& end) { appendCamelCased<ASCIILetter>(words, capitalizeFirst, end); });
}

}  // namespace

CharacterType characterType(Character character) {
  switch (unicode::scalarClass(character.firstScalar())) {
    case unicode::ScalarClass::whitespaceOrNewline:
      return CharacterType::space;
    case unicode::ScalarClass::uppercaseLetter:
      return CharacterType::uppercase;
    case unicode::ScalarClass::lowercaseLetter:
      return CharacterType::lowercase;
    case unicode::ScalarClass::otherAlphanumeric:
      return CharacterType::other;
    case unicode::ScalarClass::none:
      break;
  }
  return CharacterType::invalid;
}

String lowerCamelCased(const String& text) {
  return camelCased(text, false);
}

String upperCamelCased(const String& text) {
  return camelCased(text, true);
}

String snakeCased(const String& text) {
  if (!text.isASCII()) return snakeCasedByCharacters(text);
  const std::string_view words = trimmed(text);
  return writtenASCII(words.size(), [&](ASCIIEnd& end) { appendSnakeCased<ASCIILetter>(words, end); });
}

String camelCasedByCharacters(const String& text, bool capitalizeFirst) {
  StringBuilder result;
  appendCamelCased<Letter>(Characters(trimmed(text)), capitalizeFirst, result);
  return std::move(result).build();
}

String snakeCasedByCharacters(const String& text) {
  StringBuilder result;
  appendSnakeCased<Letter>(Characters(trimmed(text)), result);
  return std::move(result).build();
}

}  // namespace velto
