// What a scalar does to the boundaries between characters, from ICU's properties.
#include "Velto/Platform/GraphemeBreakClass.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

namespace velto {

namespace {

/// ICU brings in these properties when it is first asked for them, and where memory lacks then it answers falsely from
/// there on. So it is asked as the library is loaded.
[[maybe_unused]] const bool hasProperties = u_hasBinaryProperty(U'\u2764', UCHAR_EXTENDED_PICTOGRAPHIC) &&
                                            u_getIntPropertyValue(U'\u0915', UCHAR_INDIC_SYLLABIC_CATEGORY) != 0;

bool isOfLinkingScript(UChar32 scalar) noexcept {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(scalar, &status)) {
    case USCRIPT_BENGALI:
    case USCRIPT_DEVANAGARI:
    case USCRIPT_GUJARATI:
    case USCRIPT_MALAYALAM:
    case USCRIPT_ORIYA:
    case USCRIPT_TELUGU:
      return true;
    default:
      return false;
  }
}

bool isLinking(UChar32 scalar, UIndicSyllabicCategory category) noexcept {
  return u_getIntPropertyValue(scalar, UCHAR_INDIC_SYLLABIC_CATEGORY) == category && isOfLinkingScript(scalar);
}

BreakClass extenderClass(UChar32 scalar) noexcept {
  if (u_getCombiningClass(scalar) == 0) return BreakClass::extend;
  return isLinking(scalar, U_INSC_VIRAMA) ? BreakClass::linker : BreakClass::mark;
}

BreakClass baseClass(UChar32 scalar) noexcept {
  if (u_hasBinaryProperty(scalar, UCHAR_EXTENDED_PICTOGRAPHIC)) return BreakClass::pictographic;
  return isLinking(scalar, U_INSC_CONSONANT) ? BreakClass::consonant : BreakClass::other;
}

BreakClass lookUpBreakClass(UChar32 scalar) noexcept {
  switch (u_getIntPropertyValue(scalar, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_CONTROL:
      return BreakClass::control;
    case U_GCB_EXTEND:
      return extenderClass(scalar);
    case U_GCB_ZWJ:
      return BreakClass::joiner;
    case U_GCB_SPACING_MARK:
      return BreakClass::spacingMark;
    case U_GCB_PREPEND:
      return BreakClass::prepend;
    case U_GCB_REGIONAL_INDICATOR:
      return BreakClass::regionalIndicator;
    case U_GCB_L:
      return BreakClass::leadingJamo;
    case U_GCB_V:
      return BreakClass::vowelJamo;
    case U_GCB_T:
      return BreakClass::trailingJamo;
    case U_GCB_LV:
      return BreakClass::syllableWithoutTrail;
    case U_GCB_LVT:
      return BreakClass::syllableWithTrail;
    default:
      return baseClass(scalar);
  }
}

BreakClass breakClassBelow300(char32_t scalar) noexcept {
  if (scalar == '\r') return BreakClass::carriageReturn;
  if (scalar == '\n') return BreakClass::lineFeed;
  if (scalar < 0x20 || (0x7F <= scalar && scalar < 0xA0) || scalar == 0xAD) return BreakClass::control;
  return scalar == 0xA9 || scalar == 0xAE ? BreakClass::pictographic : BreakClass::other;
}

/// Greek, Cyrillic, Armenian, kana and the ideographs have no marks of their own, but for two of kana, and needn't be
/// looked up.
constexpr bool isPlain(char32_t scalar) noexcept {
  return (0x370 <= scalar && scalar < 0x483) || (0x48A <= scalar && scalar < 0x591) ||
         (0x1F00 <= scalar && scalar < 0x2000) || (0x3041 <= scalar && scalar < 0x3099) ||
         (0x309B <= scalar && scalar < 0x3100) || (0x3400 <= scalar && scalar < 0xA000);
}

}  // namespace

BreakClass breakClass(char32_t scalar) noexcept {
  if (scalar < 0x300) return breakClassBelow300(scalar);
  return isPlain(scalar) ? BreakClass::other : lookUpBreakClass(static_cast<UChar32>(scalar));
}

}  // namespace velto
