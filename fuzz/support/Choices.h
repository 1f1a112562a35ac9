// The bytes of a fuzzer as a row of decisions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

namespace velto::fuzz {

/// Where the bytes end every decision is the first one, so that what is made of them ends, too.
class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) noexcept : bytes_(bytes) {}

  bool areLeft() const noexcept { return !bytes_.empty(); }

  /// One of 0, 1, ... `count` - 1.
  std::size_t below(std::size_t count) noexcept {
    if (bytes_.empty()) return 0;
    const std::size_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte % count;
  }

  bool isOneOf(std::size_t count) noexcept { return below(count) == count - 1; }

  std::string_view among(std::initializer_list<std::string_view> texts) noexcept {
    return texts.begin()[below(texts.size())];
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace velto::fuzz
