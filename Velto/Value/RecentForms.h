// The forms of texts that were asked for a short while ago.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "Velto/Platform/Wrapping.h"
#include "Velto/Value/StringMember.h"

namespace velto {

/// Templates spell the same name in the same way again and again, mostly a few lines further on.
class RecentForms {
 public:
  /// The same as `form(text)`.
  [[gnu::always_inline]] String formOf(const String& text, StringForm form) {
    if (text.size() > longest) return form(text);
    Entry& entry = entries_[slotOf(text, form)];
    if (entry.form != form || !entry.text.isSameAs(text)) entry.make(text, form);
    return entry.result;
  }

 private:
  struct Entry {
    [[gnu::noinline]] void make(const String& newText, StringForm newForm) {
      result = newForm(newText);
      text = newText;
      form = newForm;
    }

    String text;  // held, so that no other text can come to stand in its memory
    StringForm form = nullptr;
    String result;
  };

  static constexpr std::size_t longest = 64;
  static constexpr std::size_t slots = 512;

  VELTO_WRAPS static std::size_t slotOf(const String& text, StringForm form) noexcept {
    const auto place = reinterpret_cast<std::uintptr_t>(text.view().data()) / 16;
    const auto code = reinterpret_cast<std::uintptr_t>(form) / 16;
    return static_cast<std::size_t>((place ^ code * 31) * 0x9E37'79B9'7F4A'7C15u >> 32) % slots;
  }

  std::array<Entry, slots> entries_;
};

}  // namespace velto
