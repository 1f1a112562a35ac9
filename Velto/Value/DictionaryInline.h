// The look at one entry of a dictionary, kept inline for the walker.
#pragma once

#include "Velto/Value/Dictionary.h"
#include "Velto/Value/DictionaryKeys.h"

namespace velto {

[[gnu::always_inline]] inline const Value* Dictionary::findTextAt(std::size_t place, const String& key) const noexcept {
  if (place >= size()) return nullptr;
  const String* const text = (*keys_)[place].string();
  return text && text->isSameAs(key) ? &values_[place] : nullptr;
}

}  // namespace velto
