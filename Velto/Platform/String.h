// The one text type of the library.
#pragma once

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

#include "Velto/Forward.h"
#include "Velto/Platform/Grove.h"
#include "Velto/Platform/Ref.h"

namespace [[gnu::visibility("default")]] velto {

/// Immutable, shared, well-formed UTF-8; a copy is a count, never bytes, and so is a slice. Equality, order and hash go
/// by canonical equivalence: an accented letter equals its decomposed form.
class String {
  friend class StringBuilder;
  friend class Value;

  /// Whether each byte is a character by itself.
  enum class Grain : std::uint8_t { unknown, bytes, characters };

  enum class Kind : std::uint8_t { block, slice, planted };

  struct Storage : Counted {
    Storage(const char* text, std::size_t size, bool isASCII, Kind kind) noexcept
        : isASCII(isASCII), kind(kind), text(text), size(size) {}
    /// It holds nothing deep: at most the text that it is a slice of, which is no slice.
    void dispose() const noexcept override { delete this; }

    Grain findGrain() const noexcept;

    bool isASCII;
    Kind kind;
    mutable std::atomic<Grain> grain = Grain::unknown;
    const char* text;
    std::size_t size;
    mutable std::atomic<std::size_t> hash = 0;  // 0 until it is asked for
  };

  /// The bytes stand behind the object, in the same piece of memory.
  struct Block final : Storage {
    static Ref<Block> allocated(std::size_t capacity);
    static Ref<const Storage> holding(std::string_view text);
    static Ref<const Storage> joining(std::initializer_list<std::string_view> pieces);
    explicit Block(std::size_t capacity) noexcept;
    // NOLINTNEXTLINE(cert-dcl54-cpp): a block is larger than its type, and `allocated` knows by how much
    static void operator delete(void* memory) { ::operator delete(memory); }
    bool hasRoomFor(std::string_view piece) const noexcept { return piece.size() <= capacity - size; }
    void append(std::string_view piece) noexcept;
    void clear() noexcept;
    void forgetFindings() noexcept;
    char* bytes() noexcept { return reinterpret_cast<char*>(this + 1); }

    std::size_t capacity;
  };

  /// The bytes are some of those of another text.
  struct Slice;
  /// The bytes stand behind the object, in a grove.
  struct Planted;

 public:
  String() noexcept = default;
  // In line, since every copy of a name runs through them.
  [[gnu::always_inline]] String(const String&) noexcept = default;
  [[gnu::always_inline]] String(String&&) noexcept = default;
  [[gnu::always_inline]] String& operator=(const String&) noexcept = default;
  [[gnu::always_inline]] String& operator=(String&&) noexcept = default;
  [[gnu::always_inline]] ~String() = default;
  /// Ill-formed sequences become U+FFFD.
  String(std::string_view text);
  /// Null is the empty text.
  String(const char* text) : String(text ? std::string_view(text) : std::string_view()) {}
  String(const std::string& text) : String(std::string_view(text)) {}

  /// Takes `text` unchecked; it must be well-formed.
  static String fromWellFormed(std::string_view text);
  /// The same for a text that comes and goes with others.
  static String fromWellFormed(std::string_view text, Grove& grove);
  /// A text of ASCII of `most` bytes at most: `write` gets the place where it is to stand and gives the end of what it
  /// wrote there.
  template <typename Write>
  static String writtenASCII(std::size_t most, Write write);
  static String concatenation(std::initializer_list<std::string_view> pieces);
  static bool isWellFormed(std::string_view text) noexcept;

  std::string_view view() const noexcept {
    return storage_ ? std::string_view(storage_->text, storage_->size) : std::string_view();
  }
  operator std::string_view() const noexcept { return view(); }
  operator std::string() const { return std::string(view()); }
  std::size_t size() const noexcept { return view().size(); }  ///< in bytes
  bool isEmpty() const noexcept { return size() == 0; }
  bool isASCII() const noexcept { return !storage_ || storage_->isASCII; }

  /// The bytes from `offset` on, `length` of them, sharing the storage; both ends must be scalar boundaries.
  String slice(std::size_t offset, std::size_t length) const;
  /// The same where it is known whether these bytes are ASCII.
  String slice(std::size_t offset, std::size_t length, bool isASCII) const;

  /// The text with `piece`, which must be well-formed, behind it. Where nobody else holds the text it grows in place,
  /// with room for more of the same, so that a long text can be made of many pieces without being copied for each.
  String appending(std::string_view piece) &&;
  /// Becomes `text`, which must be well-formed; in place, if nobody else holds this one and there is room.
  void rewrite(std::string_view text);

  /// Whether each byte is a character by itself, which is looked for once.
  bool areBytesCharacters() const noexcept;
  Int characterCount() const noexcept;
  Int utf16Length() const noexcept;
  std::size_t hash() const {
    const std::size_t known = knownHash();
    return known != 0 ? known : findHash();
  }
  /// 0 where nobody has asked for the hash before.
  std::size_t knownHash() const noexcept { return storage_ ? storage_->hash.load(std::memory_order_relaxed) : 0; }

  /// Whether no other text shares the memory of this one.
  bool isAlone() const noexcept { return !storage_ || storage_->holderCount() == 1; }
  /// True when both are the same bytes in memory, so that a comparison of the texts isn't needed.
  bool isSameAs(const String& other) const noexcept { return storage_ == other.storage_; }

  friend bool operator==(const String& left, const String& right) {
    return left.isSameAs(right) || left.isEqual(right);
  }
  friend std::strong_ordering operator<=>(const String& left, const String& right);

 private:
  bool isEqual(const String& other) const;
  std::size_t findHash() const;
  Block* ownBlock() const noexcept;
  explicit String(Ref<const Storage> storage) noexcept : storage_(std::move(storage)) {}

  Ref<const Storage> storage_;  // empty for the empty text
};

template <typename Write>
String String::writtenASCII(std::size_t most, Write write) {
  Ref<Block> block = Block::allocated(most);
  block->size = static_cast<std::size_t>(write(block->bytes()) - block->bytes());
  return block->size == 0 ? String() : String(Ref<const Storage>(std::move(block)));
}

[[gnu::visibility("default")]] std::strong_ordering operator<=>(const String& left, const String& right);

template <typename Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& stream, const String& text) {
  return stream << text.view();
}

/// Collects pieces of well-formed text. A short text is collected within the builder and a longer one where it stays,
/// so that `build` of a builder that isn't needed any more copies little or nothing.
class StringBuilder {
 public:
  StringBuilder() noexcept {}
  StringBuilder(const StringBuilder&) = delete;
  StringBuilder& operator=(const StringBuilder&) = delete;

  StringBuilder& append(std::string_view piece) {
    if (piece.size() > capacity_ - size_) return appendGrowing(piece);
    piece.copy(bytes_ + size_, piece.size());
    size_ += piece.size();
    return *this;
  }
  StringBuilder& append(char ascii) {
    reserve(1);
    bytes_[size_++] = ascii;
    return *this;
  }
  StringBuilder& appendScalar(char32_t scalar);
  /// `write` gets the place behind the text, where `most` bytes fit, and gives the end of what it wrote there.
  template <typename Write>
  StringBuilder& appendWritten(std::size_t most, Write write) {
    reserve(most);
    size_ = static_cast<std::size_t>(write(bytes_ + size_) - bytes_);
    return *this;
  }
  /// How many bytes can be appended where the text stands.
  std::size_t room() const noexcept { return capacity_ - size_; }
  /// Makes room for `bytes` more.
  void reserve(std::size_t bytes) {
    if (bytes > capacity_ - size_) grow(bytes);
  }
  void clear() noexcept { truncate(0); }
  /// Drops all behind the first `size` bytes.
  void truncate(std::size_t size) noexcept { size_ = size; }
  std::string_view view() const noexcept { return {bytes_, size_}; }
  String build() const& { return String::fromWellFormed(view()); }
  String build() &&;

 private:
  static constexpr std::size_t few = 224;

  StringBuilder& appendGrowing(std::string_view piece);
  void grow(std::size_t bytes);

  std::size_t size_ = 0;
  std::size_t capacity_ = few;
  char* bytes_ = fewBytes_;
  Ref<String::Block> block_;  // null while the text is short
  char fewBytes_[few];        // set as they are needed
};

/// "12", "-3": decimal, without grouping.
[[gnu::visibility("default")]] String decimal(Int number);

}  // namespace velto

template <>
struct std::hash<velto::String> {
  std::size_t operator()(const velto::String& text) const { return text.hash(); }
};
