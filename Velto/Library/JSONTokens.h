// Where the tokens of a JSON document begin.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velto {

/// Finds all tokens at once, with what this machine does best. It is certain of a found document that it is UTF-8, and
/// that all its texts are closed and free of control characters; the tokens may still stand in any order.
class JSONTokens {
 public:
  /// Adds what must stand behind the document for it to be read in large steps.
  explicit JSONTokens(std::string document);
  JSONTokens(const JSONTokens&) = delete;
  JSONTokens& operator=(const JSONTokens&) = delete;
  ~JSONTokens();

  /// False if there can be none in such a document.
  bool find();

  std::size_t count() const noexcept { return count_; }
  /// The first byte of a token. That of the one behind the last is a NUL.
  char first(std::size_t token) const noexcept { return document_[places_[token]]; }
  /// From the first byte of the token up to that of the next.
  std::string_view bytes(std::size_t token) const noexcept {
    return {document_.data() + places_[token], places_[token + 1] - places_[token]};
  }
  /// The same without the first byte.
  std::string_view bytesBehindFirst(std::size_t token) const noexcept {
    return {behindFirst(token), places_[token + 1] - places_[token] - 1};
  }
  /// Everything behind the first byte of the token, padding included.
  const char* behindFirst(std::size_t token) const noexcept { return document_.data() + places_[token] + 1; }

  /// The first backslash from `begin` on, or the end of the document.
  const char* findBackslash(const char* begin) const noexcept;

  /// What a text with escapes stands for, good until the next is asked for; nothing if one of them is invalid.
  std::optional<std::string_view> unescaped(std::size_t token);

 private:
  struct Finder;

  std::string document_;
  std::size_t size_;
  std::unique_ptr<Finder> finder_;
  const std::uint32_t* places_ = nullptr;
  std::size_t count_ = 0;
  std::string unescaped_;
};

}  // namespace velto
