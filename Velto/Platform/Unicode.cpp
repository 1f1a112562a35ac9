// Scalars, their classes and case mapping.
#include "Velto/Platform/Unicode.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>

#include <string>

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

void appendMapped(std::string_view text, MapCase mapCase, StringBuilder& result) {
  UErrorCode status = U_ZERO_ERROR;
  BuilderSink sink(result);
  mapCase(withoutLocale, 0, text, sink, nullptr, status);
}

constexpr bool isBetween(char32_t low, char32_t scalar, char32_t high) noexcept {
  return low <= scalar && scalar <= high;
}

bool isIn(char32_t scalar, std::uint32_t categories) noexcept {
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) & categories) != 0;
}

}  // namespace

char32_t decode(std::string_view text, std::size_t& offset) noexcept {
  return utf8::decode(text, offset);
}

String lowercased(const String& text) {
  StringBuilder result;
  appendLowercased(text, result);
  return result.build();
}

String uppercased(const String& text) {
  StringBuilder result;
  appendUppercased(text, result);
  return result.build();
}

void appendLowercased(std::string_view text, StringBuilder& result) {
  if (!utf8::isASCII(text)) return appendMapped(text, &icu::CaseMap::utf8ToLower, result);
  for (const char character : text) result.append(lowercasedASCII(character));
}

void appendUppercased(std::string_view text, StringBuilder& result) {
  if (!utf8::isASCII(text)) return appendMapped(text, &icu::CaseMap::utf8ToUpper, result);
  for (const char character : text) result.append(uppercasedASCII(character));
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

}  // namespace velto::unicode
