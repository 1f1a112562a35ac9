// The one text type of the library.
#pragma once

#include <array>
#include <atomic>
#include <compare>
#include <cstddef>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "Velto/Forward.h"
#include "Velto/Platform/Ref.h"

namespace [[gnu::visibility("default")]] velto {

/// Immutable, shared, well-formed UTF-8; a copy is a count, never bytes, and so is a slice. Equality, order and hash go
/// by canonical equivalence: an accented letter equals its decomposed form.
class String {
  friend class StringBuilder;
  friend class Value;

  /// The bytes stand behind the object, or within those of the text that this is a slice of.
  struct Storage final : Counted {
    static Ref<const Storage> joining(std::initializer_list<std::string_view> pieces);
    Storage(const char* text, std::size_t size, bool isASCII, Ref<const Storage> whole) noexcept;
    static void operator delete(void* memory) { ::operator delete(memory); }
    /// It holds nothing deep: at most the text that it is a slice of, which is no slice.
    void dispose() const noexcept override { delete this; }

    bool isASCII;
    const char* text;
    std::size_t size;
    mutable std::atomic<std::size_t> hash = 0;  // 0 until it is asked for
    Ref<const Storage> whole;
  };

 public:
  String() noexcept = default;
  /// Ill-formed sequences become U+FFFD.
  String(std::string_view text);
  /// Null is the empty text.
  String(const char* text) : String(text ? std::string_view(text) : std::string_view()) {}
  String(const std::string& text) : String(std::string_view(text)) {}

  /// Takes `text` unchecked; it must be well-formed.
  static String fromWellFormed(std::string_view text);
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

  Int characterCount() const noexcept;
  Int utf16Length() const noexcept;
  std::size_t hash() const noexcept {
    const std::size_t known = storage_ ? storage_->hash.load(std::memory_order_relaxed) : 0;
    return known != 0 ? known : findHash();
  }

  /// Whether no other text shares the memory of this one.
  bool isAlone() const noexcept { return !storage_ || storage_->holderCount() == 1; }
  /// True when both are the same bytes in memory, so that a comparison of the texts isn't needed.
  bool isSameAs(const String& other) const noexcept { return storage_ == other.storage_; }

  friend bool operator==(const String& left, const String& right) noexcept;
  friend std::strong_ordering operator<=>(const String& left, const String& right) noexcept;

 private:
  std::size_t findHash() const noexcept;
  explicit String(Ref<const Storage> storage) noexcept : storage_(std::move(storage)) {}

  Ref<const Storage> storage_;  // empty for the empty text
};

[[gnu::visibility("default")]] bool operator==(const String& left, const String& right) noexcept;
[[gnu::visibility("default")]] std::strong_ordering operator<=>(const String& left, const String& right) noexcept;

template <typename Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& stream, const String& text) {
  return stream << text.view();
}

/// Collects pieces of well-formed text. Most texts are short, and take no memory but their own.
class StringBuilder {
 public:
  StringBuilder() noexcept {}
  StringBuilder(const StringBuilder&) = delete;
  StringBuilder& operator=(const StringBuilder&) = delete;

  StringBuilder& append(std::string_view piece) {
    reserve(piece.size());
    if (!piece.empty()) std::memcpy(text_ + size_, piece.data(), piece.size());
    size_ += piece.size();
    return *this;
  }
  StringBuilder& append(char ascii) {
    reserve(1);
    text_[size_++] = ascii;
    return *this;
  }
  StringBuilder& appendScalar(char32_t scalar);
  /// Makes room for `bytes` more.
  void reserve(std::size_t bytes) {
    if (bytes > capacity_ - size_) grow(bytes);
  }
  void clear() noexcept { size_ = 0; }
  std::string_view view() const noexcept { return {text_, size_}; }
  String build() const { return String::fromWellFormed(view()); }

 private:
  void grow(std::size_t bytes);

  std::array<char, 200> short_;  // its bytes are set as they are needed
  std::unique_ptr<char[]> long_;
  char* text_ = short_.data();
  std::size_t size_ = 0;
  std::size_t capacity_ = short_.size();
};

/// "12", "-3": decimal, without grouping.
[[gnu::visibility("default")]] String decimal(Int number);

}  // namespace velto

template <>
struct std::hash<velto::String> {
  std::size_t operator()(const velto::String& text) const noexcept { return text.hash(); }
};
