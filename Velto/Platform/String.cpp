// Immutable shared text.
#include "Velto/Platform/String.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <new>
#include <numeric>
#include <utility>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Unicode.h"
#include "Velto/Platform/Utf8.h"

namespace velto {

struct String::Slice final : Storage {
  Slice(std::string_view part, bool isASCII, Ref<const Storage> whole) noexcept
      : Storage(part.data(), part.size(), isASCII, Kind::slice), whole(std::move(whole)) {}

  Ref<const Storage> whole;
};

struct String::Planted final : Storage {
  static Ref<const Storage> holding(std::string_view text, Grove& grove) {
    if (text.empty()) return nullptr;
    void* const memory = grove.allocate(sizeof(Planted) + text.size());
    return Ref<const Storage>(::new (memory) Planted(text));
  }
  // NOLINTNEXTLINE(cert-dcl54-cpp): nothing but `holding` makes one
  static void operator delete(void* memory) { Grove::release(memory); }

 private:
  explicit Planted(std::string_view text) noexcept
      : Storage(reinterpret_cast<const char*>(this + 1), text.size(), utf8::isASCII(text), Kind::planted) {
    text.copy(reinterpret_cast<char*>(this + 1), text.size());
  }
};

String::Block::Block(std::size_t capacity) noexcept
    : Storage(reinterpret_cast<const char*>(this + 1), 0, true, Kind::block), capacity(capacity) {
}

Ref<String::Block> String::Block::allocated(std::size_t capacity) {
  return Ref<Block>(::new (::operator new(sizeof(Block) + capacity)) Block(capacity));
}

Ref<const String::Storage> String::Block::holding(std::string_view text) {
  if (text.empty()) return nullptr;
  Ref<Block> block = allocated(text.size());
  block->append(text);
  return block;
}

Ref<const String::Storage> String::Block::joining(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  if (size == 0) return nullptr;

  Ref<Block> block = allocated(size);
  for (const std::string_view piece : pieces) block->append(piece);
  return block;
}

void String::Block::append(std::string_view piece) noexcept {
  piece.copy(bytes() + size, piece.size());
  size += piece.size();
  isASCII = isASCII && utf8::isASCII(piece);
}

void String::Block::clear() noexcept {
  size = 0;
  isASCII = true;
  forgetFindings();
}

void String::Block::forgetFindings() noexcept {
  hash.store(0, std::memory_order_relaxed);
  grain.store(Grain::unknown, std::memory_order_relaxed);
}

String::String(std::string_view text)
    : storage_(isWellFormed(text) ? Block::holding(text) : Block::holding(utf8::repaired(text))) {
}

String String::fromWellFormed(std::string_view text) {
  return String(Block::holding(text));
}

String String::fromWellFormed(std::string_view text, Grove& grove) {
  constexpr std::size_t longest = 256;  // of those that leave little of a piece of memory unused
  if (text.size() > longest) return fromWellFormed(text);
  return String(Planted::holding(text, grove));
}

String String::concatenation(std::initializer_list<std::string_view> pieces) {
  return String(Block::joining(pieces));
}

bool String::isWellFormed(std::string_view text) noexcept {
  return utf8::wellFormedPrefixLength(text) == text.size();
}

String String::slice(std::size_t offset, std::size_t length) const {
  if (length == size()) return *this;
  return slice(offset, length, isASCII() || utf8::isASCII(view().substr(offset, length)));
}

String String::slice(std::size_t offset, std::size_t length, bool isASCII) const {
  if (length == size()) return *this;
  if (length == 0) return String();
  const Ref<const Storage>& whole =
      storage_->kind == Kind::slice ? static_cast<const Slice&>(*storage_).whole : storage_;
  return String(makeRef<const Slice>(view().substr(offset, length), isASCII, whole));
}

String String::appending(std::string_view piece) && {
  if (piece.empty()) return std::move(*this);
  Block* const own = ownBlock();
  if (own && own->hasRoomFor(piece)) {
    own->append(piece);
    own->forgetFindings();
    return std::move(*this);
  }
  const std::size_t newSize = size() + piece.size();
  Ref<Block> block = Block::allocated(newSize + newSize / 2);
  block->append(view());
  block->append(piece);
  return String(std::move(block));
}

void String::rewrite(std::string_view text) {
  Block* const own = ownBlock();
  if (own && !text.empty() && text.size() <= own->capacity) {
    own->clear();
    own->append(text);
  } else {
    *this = fromWellFormed(text);
  }
}

/// The block that nobody else holds; null if there is none.
String::Block* String::ownBlock() const noexcept {
  const bool isOwn = storage_ && storage_->kind == Kind::block && storage_->holderCount() == 1;
  return isOwn ? const_cast<Block*>(static_cast<const Block*>(storage_.get())) : nullptr;
}

/// Of two ASCII characters, only CR LF are one.
bool String::areBytesCharacters() const noexcept {
  return !storage_ || storage_->findGrain() == Grain::bytes;
}

String::Grain String::Storage::findGrain() const noexcept {
  const Grain known = grain.load(std::memory_order_relaxed);
  if (known != Grain::unknown) return known;
  const bool areBytes = isASCII && std::string_view(text, size).find('\r') == std::string_view::npos;
  const Grain found = areBytes ? Grain::bytes : Grain::characters;
  grain.store(found, std::memory_order_relaxed);
  return found;
}

Int String::characterCount() const noexcept {
  if (areBytesCharacters()) return static_cast<Int>(size());
  return velto::characterCount(view());
}

Int String::utf16Length() const noexcept {
  if (isASCII()) return static_cast<Int>(size());
  return std::accumulate(view().begin(), view().end(), Int{0}, [](Int length, char byte) {
    const bool needsTwoUnits = static_cast<unsigned char>(byte) >= 0xF0;
    return length + !utf8::isContinuation(byte) + needsTwoUnits;
  });
}

std::size_t String::findHash() const {
  if (!storage_) return std::hash<std::string_view>()({});
  const std::size_t hash =
      std::max<std::size_t>(isASCII() ? std::hash<std::string_view>()(view()) : unicode::hash(view()), 1);
  storage_->hash.store(hash, std::memory_order_relaxed);
  return hash;
}

bool String::isEqual(const String& other) const {
  const bool haveSameBytes = size() == other.size() && std::memcmp(view().data(), other.view().data(), size()) == 0;
  return haveSameBytes || (!(isASCII() && other.isASCII()) && unicode::areEquivalent(*this, other));
}

std::strong_ordering operator<=>(const String& left, const String& right) {
  if (left.isSameAs(right)) return std::strong_ordering::equal;
  if (left.isASCII() && right.isASCII()) return left.view().compare(right.view()) <=> 0;
  return unicode::compare(left, right);
}

StringBuilder& StringBuilder::appendScalar(char32_t scalar) {
  return appendWritten(utf8::longest, [scalar](char* end) { return utf8::write(scalar, end); });
}

String StringBuilder::build() && {
  // What was reserved in vain would stay with the text.
  const bool isFilled = block_ && size_ >= capacity_ / 2;
  if (!isFilled) return String::fromWellFormed(view());
  block_->size = size_;
  block_->isASCII = utf8::asciiPrefixLength(view()) == size_;
  size_ = 0;
  capacity_ = few;
  bytes_ = fewBytes_;
  return String(Ref<const String::Storage>(std::move(block_)));
}

/// The piece may be a part of the text itself.
StringBuilder& StringBuilder::appendGrowing(std::string_view piece) {
  const Ref<String::Block> before = block_;
  grow(piece.size());
  return append(piece);
}

void StringBuilder::grow(std::size_t bytes) {
  const std::size_t capacity = std::max(size_ + bytes, capacity_ + capacity_ / 2);
  Ref<String::Block> block = String::Block::allocated(capacity);
  view().copy(block->bytes(), size_);
  bytes_ = block->bytes();
  capacity_ = capacity;
  block_ = std::move(block);
}

String decimal(Int number) {
  std::array<char, 20> digits;
  const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number);
  return String::fromWellFormed(std::string_view(digits.begin(), end));
}

}  // namespace velto
