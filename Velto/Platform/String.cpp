// Immutable shared text.
#include "Velto/Platform/String.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <new>
#include <numeric>
#include <utility>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Unicode.h"
#include "Velto/Platform/Utf8.h"

namespace velto {

String::Storage::Storage(const char* text, std::size_t size, bool isASCII, Ref<const Storage> whole) noexcept
    : isASCII(isASCII), text(text), size(size), whole(std::move(whole)) {
}

/// One block of memory holds the object and, behind it, the bytes.
Ref<const String::Storage> String::Storage::joining(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  if (size == 0) return nullptr;

  void* const memory = ::operator new(sizeof(Storage) + size);
  char* const text = static_cast<char*>(memory) + sizeof(Storage);
  char* end = text;
  for (const std::string_view piece : pieces) end = std::copy(piece.begin(), piece.end(), end);
  return Ref<const Storage>(::new (memory) Storage(text, size, utf8::isASCII(std::string_view(text, size)), nullptr));
}

String::String(std::string_view text)
    : storage_(isWellFormed(text) ? Storage::joining({text}) : Storage::joining({utf8::repaired(text)})) {
}

String String::fromWellFormed(std::string_view text) {
  return concatenation({text});
}

String String::concatenation(std::initializer_list<std::string_view> pieces) {
  return String(Storage::joining(pieces));
}

bool String::isWellFormed(std::string_view text) noexcept {
  return utf8::wellFormedPrefixLength(text) == text.size();
}

String String::slice(std::size_t offset, std::size_t length) const {
  if (length == size()) return *this;
  if (length == 0) return String();
  const std::string_view part = view().substr(offset, length);
  const bool isPartASCII = isASCII() || utf8::isASCII(part);
  return String(
      makeRef<const Storage>(part.data(), part.size(), isPartASCII, storage_->whole ? storage_->whole : storage_));
}

Int String::characterCount() const noexcept {
  return velto::characterCount(view());
}

Int String::utf16Length() const noexcept {
  if (isASCII()) return static_cast<Int>(size());
  return std::accumulate(view().begin(), view().end(), Int{0}, [](Int length, char byte) {
    const bool needsTwoUnits = static_cast<unsigned char>(byte) >= 0xF0;
    return length + !utf8::isContinuation(byte) + needsTwoUnits;
  });
}

std::size_t String::findHash() const noexcept {
  if (!storage_) return std::hash<std::string_view>()({});
  const std::size_t hash =
      std::max<std::size_t>(isASCII() ? std::hash<std::string_view>()(view()) : unicode::hash(view()), 1);
  storage_->hash.store(hash, std::memory_order_relaxed);
  return hash;
}

bool operator==(const String& left, const String& right) noexcept {
  if (left.isSameAs(right) || left.view() == right.view()) return true;
  if (left.isASCII() && right.isASCII()) return false;
  return unicode::areEquivalent(left, right);
}

std::strong_ordering operator<=>(const String& left, const String& right) noexcept {
  if (left.isSameAs(right)) return std::strong_ordering::equal;
  if (left.isASCII() && right.isASCII()) return left.view() <=> right.view();
  return unicode::compare(left, right);
}

StringBuilder& StringBuilder::appendScalar(char32_t scalar) {
  std::string bytes;
  utf8::append(scalar, bytes);
  return append(bytes);
}

void StringBuilder::grow(std::size_t bytes) {
  const std::size_t capacity = std::max(size_ + bytes, 2 * capacity_);
  auto larger = std::make_unique_for_overwrite<char[]>(capacity);
  std::copy_n(text_, size_, larger.get());
  long_ = std::move(larger);
  text_ = long_.get();
  capacity_ = capacity;
}

String decimal(Int number) {
  std::array<char, 20> digits;
  const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number);
  return String::fromWellFormed(std::string_view(digits.begin(), end));
}

}  // namespace velto
