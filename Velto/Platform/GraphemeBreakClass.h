// What a scalar does to the boundaries between characters.
#pragma once

namespace velto {

/// The classes of Unicode's text segmentation (UAX 29), with those apart that only some rules look at.
enum class BreakClass {
  other,
  pictographic,
  carriageReturn,
  lineFeed,
  control,
  extend,  // reordered by nothing: its combining class is 0
  mark,    // extends, too
  linker,  // a mark that joins consonants
  consonant,
  joiner,
  spacingMark,
  prepend,
  regionalIndicator,
  leadingJamo,
  vowelJamo,
  trailingJamo,
  syllableWithoutTrail,
  syllableWithTrail
};

BreakClass breakClass(char32_t scalar) noexcept;

constexpr bool isControl(BreakClass class_) noexcept {
  return class_ == BreakClass::control || class_ == BreakClass::carriageReturn || class_ == BreakClass::lineFeed;
}

/// True when the scalar belongs to whatever stands before it, controls excepted.
constexpr bool isExtender(BreakClass class_) noexcept {
  using enum BreakClass;
  return class_ == extend || class_ == mark || class_ == linker || class_ == joiner || class_ == spacingMark;
}

}  // namespace velto
