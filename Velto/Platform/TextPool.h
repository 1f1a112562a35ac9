// Short texts that come again and again.
#pragma once

#include <string_view>
#include <unordered_set>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// Names and keys, each kept once for as long as anybody uses it. Where two texts come from one pool, nearly every
/// comparison ends with a look at whether they are the same in memory.
class TextPool {
 public:
  /// The text of the pool with these very bytes, which becomes a copy of `text` where there is none.
  String shared(std::string_view text);
  /// Takes in a text whose bytes aren't there yet.
  void add(const String& text);
  /// Null if there is none.
  const String* find(std::string_view text) const noexcept;

 private:
  // By bytes: a text and its decomposed form are two.
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const noexcept { return left == right; }
  };

  std::unordered_set<String, Hash, Equal> texts_;
  std::size_t sweepAt_ = 1024;
};

}  // namespace velto
