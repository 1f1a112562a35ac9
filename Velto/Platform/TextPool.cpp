#include "Velto/Platform/TextPool.h"

#include <algorithm>

namespace velto {

String TextPool::shared(std::string_view text) {
  if (const String* present = find(text)) return *present;
  String taken = String::fromWellFormed(text);
  add(taken);
  return taken;
}

void TextPool::add(const String& text) {
  texts_.insert(text);
  if (texts_.size() < sweepAt_) return;
  std::erase_if(texts_, [](const String& kept) { return kept.isAlone(); });
  sweepAt_ = std::max<std::size_t>(1024, 2 * texts_.size());  // so that sweeping costs a constant per text
}

const String* TextPool::find(std::string_view text) const noexcept {
  const auto present = texts_.find(text);
  return present != texts_.end() ? &*present : nullptr;
}

}  // namespace velto
