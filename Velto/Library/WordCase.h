// Names in other spellings: words found in a text and joined in another form.
#pragma once

#include <cstdint>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// What a character means to the routines below.
enum class CharacterType : std::uint8_t { space, uppercase, lowercase, other, invalid };

/// By the first scalar alone. Digits are `other`, punctuation and symbols `invalid`, a tab too.
[[gnu::visibility("default")]] CharacterType characterType(Character character);

/// "hello world" becomes "helloWorld". White space and a change from lowercase to uppercase begin a word; punctuation
/// is dropped and begins none. What isn't a letter gets an underscore in front of it, and a text without a word is
/// "_0".
String lowerCamelCased(const String& text);

/// The same with a capital at the beginning.
String upperCamelCased(const String& text);

/// "hello world" becomes "hello_world". White space and punctuation separate words, case doesn't. A first character
/// that isn't a letter is replaced by an underscore.
String snakeCased(const String& text);

// The same for any text, character by character; the ones above know a shorter way for ASCII.
String camelCasedByCharacters(const String& text, bool capitalizeFirst);
String snakeCasedByCharacters(const String& text);

}  // namespace velto
