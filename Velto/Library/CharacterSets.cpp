#include "Velto/Library/CharacterSets.h"

#include "Velto/Platform/Unicode.h"

namespace velto {

constinit const CharacterSet CharacterSets::letters{unicode::isLetter};
constinit const CharacterSet CharacterSets::alphanumerics{unicode::isAlphanumeric};
constinit const CharacterSet CharacterSets::whitespacesAndNewlines{unicode::isWhitespaceOrNewline};
constinit const CharacterSet CharacterSets::uppercaseLetters{unicode::isUppercaseLetter};
constinit const CharacterSet CharacterSets::lowercaseLetters{unicode::isLowercaseLetter};

}  // namespace velto
