// The texts of a JSON document.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Velto/Platform/Grove.h"
#include "Velto/Platform/String.h"
#include "Velto/Platform/TextPool.h"

namespace velto {

/// Keeps short texts that came a short while ago: in most documents a few come very often. Words that a program names,
/// too, are taken from its pool, so that a comparison of the two is one of pointers.
class JSONRecentTexts {
 public:
  JSONRecentTexts(const TextPool& pool, Grove& grove) : pool_(pool), grove_(grove) {}

  /// There has to be room to read on behind the text.
  String shared(std::string_view text);

 private:
  static std::size_t slotOf(std::string_view text) noexcept;

  const TextPool& pool_;
  Grove& grove_;
  std::vector<String> texts_ = std::vector<String>(1024);
};

}  // namespace velto
