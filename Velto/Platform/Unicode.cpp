// Scalars, their classes and case mapping.
#include "Velto/Platform/Unicode.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <new>
#include <utility>

#include "Velto/Platform/UnicodePiece.h"
#include "Velto/Platform/Utf8.h"

namespace velto::unicode {

namespace {

using MapCase = void (*)(const char*, std::uint32_t, icu::StringPiece, icu::ByteSink&, icu::Edits*, UErrorCode&);

constexpr const char* withoutLocale = "";

class BuilderSink final : public icu::ByteSink {
 public:
  explicit BuilderSink(StringBuilder& builder) noexcept : builder_(builder) {}

  void Append(const char* bytes, std::int32_t size) override {
    builder_.append(std::string_view(bytes, static_cast<std::size_t>(size)));
  }

 private:
  StringBuilder& builder_;
};

void appendMappedByContext(std::string_view text, MapCase mapCase, StringBuilder& result) {
  UErrorCode status = U_ZERO_ERROR;
  BuilderSink sink(result);
  mapCase(withoutLocale, 0, pieceOf(text), sink, nullptr, status);
  if (U_FAILURE(status)) throw std::bad_alloc();  // the text is sound
}

constexpr bool isBetween(char32_t low, char32_t scalar, char32_t high) noexcept {
  return low <= scalar && scalar <= high;
}

bool isIn(char32_t scalar, std::uint32_t categories) noexcept {
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) & categories) != 0;
}

/// The case of letters, one of two ways to map it.
struct Lowercase {
  static constexpr MapCase mapText = &icu::CaseMap::utf8ToLower;
  static char32_t map(char32_t scalar) noexcept {
    return static_cast<char32_t>(u_tolower(static_cast<UChar32>(scalar)));
  }
  static constexpr auto mapASCII = lowercasedASCII;
  /// A sigma looks at its context, and the dotted I becomes two scalars.
  static constexpr bool isSpecial(char32_t scalar) noexcept { return scalar == 0x3A3 || scalar == 0x130; }
};

struct Uppercase {
  static constexpr MapCase mapText = &icu::CaseMap::utf8ToUpper;
  static char32_t map(char32_t scalar) noexcept {
    return static_cast<char32_t>(u_toupper(static_cast<UChar32>(scalar)));
  }
  static constexpr auto mapASCII = uppercasedASCII;
  /// Each becomes several scalars.
  static constexpr bool isSpecial(char32_t scalar) noexcept {
    return scalar == 0xDF || scalar == 0x149 || scalar == 0x1F0 || scalar == 0x390 || scalar == 0x3B0;
  }
};

constexpr bool isWithoutCase(char32_t scalar) noexcept {
  return isBetween(0x3041, scalar, 0x30FF) || isBetween(0x3400, scalar, 0x9FFF) || isBetween(0xAC00, scalar, 0xD7A3);
}

/// Latin, Greek and Cyrillic letters, nearly all of which have one counterpart, whatever stands around them.
constexpr bool isPlainLetter(char32_t scalar) noexcept {
  return scalar < 0x250 || isBetween(0x370, scalar, 0x52F);
}

template <typename Case>
constexpr bool isMappedAlone(char32_t scalar) noexcept {
  return isWithoutCase(scalar) || (isPlainLetter(scalar) && !Case::isSpecial(scalar));
}

template <typename Case>
void appendMappedScalar(char32_t scalar, StringBuilder& result) {
  if (scalar < 0x80) {
    result.append(Case::mapASCII(static_cast<char>(scalar)));
  } else {
    result.appendScalar(isWithoutCase(scalar) ? scalar : Case::map(scalar));
  }
}

/// False, with nothing appended, if there is a scalar that may need a context or become several.
template <typename Case>
bool appendMappedAlone(std::string_view text, StringBuilder& result) {
  const std::size_t sizeBefore = result.view().size();
  for (std::size_t offset = 0; offset < text.size();) {
    const char32_t scalar = utf8::decode(text, offset);
    if (!isMappedAlone<Case>(scalar)) {
      result.truncate(sizeBefore);
      return false;
    }
    appendMappedScalar<Case>(scalar, result);
  }
  return true;
}

template <typename Case>
void appendMappedASCII(std::string_view text, StringBuilder& result) {
  result.appendWritten(text.size(),
                       [&](char* end) { return std::transform(text.begin(), text.end(), end, Case::mapASCII); });
}

template <typename Case>
void appendMapped(std::string_view text, StringBuilder& result) {
  if (utf8::isASCII(text)) return appendMappedASCII<Case>(text, result);
  if (!appendMappedAlone<Case>(text, result)) appendMappedByContext(text, Case::mapText, result);
}

}  // namespace

char32_t decode(std::string_view text, std::size_t& offset) noexcept {
  return utf8::decode(text, offset);
}

String lowercased(const String& text) {
  StringBuilder result;
  appendLowercased(text, result);
  return std::move(result).build();
}

String uppercased(const String& text) {
  StringBuilder result;
  appendUppercased(text, result);
  return std::move(result).build();
}

void appendLowercased(std::string_view text, StringBuilder& result) {
  appendMapped<Lowercase>(text, result);
}

void appendUppercased(std::string_view text, StringBuilder& result) {
  appendMapped<Uppercase>(text, result);
}

void appendLowercasedByContext(std::string_view text, StringBuilder& result) {
  appendMappedByContext(text, Lowercase::mapText, result);
}

void appendUppercasedByContext(std::string_view text, StringBuilder& result) {
  appendMappedByContext(text, Uppercase::mapText, result);
}

bool isLetter(char32_t scalar) noexcept {
  if (scalar < 0x80) return isBetween('a', scalar | 0x20, 'z');
  return isIn(scalar, U_GC_L_MASK | U_GC_M_MASK);
}

bool isAlphanumeric(char32_t scalar) noexcept {
  if (scalar < 0x80) return isLetter(scalar) || isBetween('0', scalar, '9');
  return isIn(scalar, U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
}

bool isWhitespaceOrNewline(char32_t scalar) noexcept {
  if (scalar < 0x80) return scalar == ' ' || isBetween(0x0A, scalar, 0x0D);
  return scalar == 0x85 || isIn(scalar, U_GC_Z_MASK);
}

bool isUppercaseLetter(char32_t scalar) noexcept {
  if (scalar < 0x80) return isBetween('A', scalar, 'Z');
  return isIn(scalar, U_GC_LU_MASK | U_GC_LT_MASK);
}

bool isLowercaseLetter(char32_t scalar) noexcept {
  if (scalar < 0x80) return isBetween('a', scalar, 'z');
  return isIn(scalar, U_GC_LL_MASK);
}

ScalarClass scalarClass(char32_t scalar) noexcept {
  if (scalar < 0x100 && isWhitespaceOrNewline(scalar)) return ScalarClass::whitespaceOrNewline;
  const std::uint32_t category = U_GET_GC_MASK(static_cast<UChar32>(scalar));
  if (category & U_GC_LL_MASK) return ScalarClass::lowercaseLetter;
  if (category & (U_GC_LU_MASK | U_GC_LT_MASK)) return ScalarClass::uppercaseLetter;
  if (category & (U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK)) return ScalarClass::otherAlphanumeric;
  return category & U_GC_Z_MASK ? ScalarClass::whitespaceOrNewline : ScalarClass::none;
}

}  // namespace velto::unicode
