// Canonical equivalence: equality, order, hash and searches that see through the ways to write a character.
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <string>

#include "Velto/Platform/Unicode.h"
#include "Velto/Platform/UnicodePiece.h"
#include "Velto/Platform/Utf8.h"

namespace velto::unicode {

namespace {

/// With data that is a part of ICU, and sound text, nothing fails but for lack of memory.
void check(UErrorCode status) {
  if (U_FAILURE(status)) throw std::bad_alloc();
}

const icu::Normalizer2& loaded(const icu::Normalizer2* (*load)(UErrorCode&)) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* const normalizer = load(status);
  check(status);
  return *normalizer;
}

/// ICU makes its normalizers when it is first asked for one, and where memory lacks then it never gives any. So it is
/// asked as the library is loaded.
bool hasNormalizers() noexcept {
  UErrorCode status = U_ZERO_ERROR;
  return icu::Normalizer2::getNFCInstance(status) != nullptr;
}

[[maybe_unused]] const bool areReady = hasNormalizers();

const icu::Normalizer2& composing() {
  static const icu::Normalizer2& normalizer = loaded(icu::Normalizer2::getNFCInstance);
  return normalizer;
}

const icu::Normalizer2& decomposing() {
  static const icu::Normalizer2& normalizer = loaded(icu::Normalizer2::getNFDInstance);
  return normalizer;
}

/// The normal form of `text`: the bytes themselves where they have it already, which most texts do.
class Normalized {
 public:
  Normalized(const icu::Normalizer2& normalizer, std::string_view text) : view_(text) {
    UErrorCode status = U_ZERO_ERROR;
    if (utf8::isASCII(text) || normalizer.isNormalizedUTF8(pieceOf(text), status)) return;
    check(status);
    icu::StringByteSink<std::string> sink(&normal_);
    normalizer.normalizeUTF8(0, pieceOf(text), sink, nullptr, status);
    check(status);
    view_ = normal_;
  }
  Normalized(const Normalized&) = delete;
  Normalized& operator=(const Normalized&) = delete;

  std::string_view view() const noexcept { return view_; }

 private:
  std::string normal_;
  std::string_view view_;
};

/// True when the scalar at `offset`, if there is one, decomposes to itself whatever stands around it.
bool isInert(std::string_view text, std::size_t offset) {
  if (offset == text.size() || utf8::isASCII(text[offset])) return true;
  return decomposing().isInert(static_cast<UChar32>(utf8::decode(text, offset)));
}

/// The start of the scalar with the first difference. It stands within a scalar in both texts or in neither.
std::size_t firstDifference(std::string_view left, std::string_view right) noexcept {
  const auto [end, ignored] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  std::size_t offset = static_cast<std::size_t>(end - left.begin());
  while (offset < left.size() && utf8::isContinuation(left[offset])) --offset;
  return offset;
}

/// The last ASCII character before `offset`. What stands before it has no influence on what it and its followers
/// become.
std::size_t lastASCII(std::string_view text, std::size_t offset) noexcept {
  while (offset > 0 && !utf8::isASCII(text[offset])) --offset;
  return offset;
}

}  // namespace

bool areEquivalent(std::string_view left, std::string_view right) {
  return compare(left, right) == 0;
}

std::strong_ordering compare(std::string_view left, std::string_view right) {
  const std::size_t difference = firstDifference(left, right);
  if (isInert(left, difference) && isInert(right, difference))
    return left.substr(difference).compare(right.substr(difference)) <=> 0;

  const std::size_t start = difference == 0 ? 0 : lastASCII(left, difference - 1);
  const Normalized leftRest(decomposing(), left.substr(start));
  const Normalized rightRest(decomposing(), right.substr(start));
  return leftRest.view().compare(rightRest.view()) <=> 0;
}

std::size_t hash(std::string_view text) {
  return std::hash<std::string_view>()(Normalized(composing(), text).view());
}

bool hasPrefix(const String& text, const String& prefix) {
  if (text.isASCII() && prefix.isASCII()) return text.view().starts_with(prefix.view());
  return Normalized(decomposing(), text).view().starts_with(Normalized(decomposing(), prefix).view());
}

bool hasSuffix(const String& text, const String& suffix) {
  if (text.isASCII() && suffix.isASCII()) return text.view().ends_with(suffix.view());
  return Normalized(decomposing(), text).view().ends_with(Normalized(decomposing(), suffix).view());
}

bool contains(const String& text, const String& part) {
  if (text.isEmpty() || part.isEmpty()) return false;
  const Normalized whole(decomposing(), text);
  const Normalized sought(decomposing(), part);
  // Unlike `find`, this is linear for every text.
  return ::memmem(whole.view().data(), whole.view().size(), sought.view().data(), sought.view().size()) != nullptr;
}

}  // namespace velto::unicode
