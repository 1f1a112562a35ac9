// What kind of character a cluster is, and how characters compare.
#include "Velto/Platform/Character.h"

#include <algorithm>
#include <iterator>

#include "Velto/Platform/Unicode.h"
#include "Velto/Platform/Utf8.h"

namespace velto {

namespace {

struct Scalars {
  char32_t first;
  char32_t last;
};

constexpr Scalars identifierStarts[] = {
    {0x41, 0x5A},       {0x5F, 0x5F},       {0x61, 0x7A},       {0xA8, 0xA8},       {0xAA, 0xAA},
    {0xAD, 0xAD},       {0xAF, 0xAF},       {0xB2, 0xB5},       {0xB7, 0xBA},       {0xBC, 0xBE},
    {0xC0, 0xD6},       {0xD8, 0xF6},       {0xF8, 0xFF},       {0x100, 0x2FF},     {0x370, 0x167F},
    {0x1681, 0x180D},   {0x180F, 0x1DBF},   {0x1E00, 0x1FFF},   {0x200B, 0x200D},   {0x202A, 0x202E},
    {0x203F, 0x2040},   {0x2054, 0x2054},   {0x2060, 0x206F},   {0x2070, 0x20CF},   {0x2100, 0x218F},
    {0x2460, 0x24FF},   {0x2776, 0x2793},   {0x2C00, 0x2DFF},   {0x2E80, 0x2FFF},   {0x3004, 0x3007},
    {0x3021, 0x302F},   {0x3031, 0x303F},   {0x3040, 0xD7FF},   {0xF900, 0xFD3D},   {0xFD40, 0xFDCF},
    {0xFDF0, 0xFE1F},   {0xFE30, 0xFE44},   {0xFE47, 0xFFFD},   {0x10000, 0x1FFFD}, {0x20000, 0x2FFFD},
    {0x30000, 0x3FFFD}, {0x40000, 0x4FFFD}, {0x50000, 0x5FFFD}, {0x60000, 0x6FFFD}, {0x70000, 0x7FFFD},
    {0x80000, 0x8FFFD}, {0x90000, 0x9FFFD}, {0xA0000, 0xAFFFD}, {0xB0000, 0xBFFFD}, {0xC0000, 0xCFFFD},
    {0xD0000, 0xDFFFD}, {0xE0000, 0xEFFFD}};

constexpr Scalars identifierContinuations[] = {
    {0x30, 0x39}, {0x300, 0x36F}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF}, {0xFE20, 0xFE2F}};

template <std::size_t size>
bool isIn(const Scalars (&table)[size], char32_t scalar) noexcept {
  const auto isBefore = [](char32_t wanted, const Scalars& each) { return wanted < each.first; };
  const auto behind = std::upper_bound(std::begin(table), std::end(table), scalar, isBefore);
  return behind != std::begin(table) && scalar <= std::prev(behind)->last;
}

bool isStart(char32_t scalar) noexcept {
  if (scalar < 0x80) return (U'a' <= (scalar | 0x20) && (scalar | 0x20) <= U'z') || scalar == U'_';
  return isIn(identifierStarts, scalar);
}

bool isContinuation(char32_t scalar) noexcept {
  return isStart(scalar) || isIn(identifierContinuations, scalar);
}

template <typename Test>
bool allScalars(std::string_view text, Test test) noexcept {
  for (std::size_t offset = 0; offset < text.size();) {
    if (!test(utf8::decode(text, offset))) return false;
  }
  return true;
}

}  // namespace

char32_t Character::firstScalar() const noexcept {
  return utf8::decodeFirst(text_);
}

/// A mark behind a digit puts the character behind the bare digit, and still before the next one.
bool Character::isDigit() const noexcept {
  return ('0' <= text_.front() && text_.front() < '9') || text_ == "9";
}

bool Character::isValidIdentifierStart() const noexcept {
  return allScalars(text_, isStart);
}

bool Character::isValidIdentifierContinuation() const noexcept {
  return allScalars(text_, isContinuation);
}

bool operator==(Character left, Character right) {
  if (left.text_ == right.text_) return true;
  if (left.text_.size() == 1 && right.text_.size() == 1) return false;
  return unicode::areEquivalent(left.text_, right.text_);
}

std::strong_ordering operator<=>(Character left, Character right) {
  return unicode::compare(left.text_, right.text_);
}

}  // namespace velto
