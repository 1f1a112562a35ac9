// The keys and texts of a JSON document.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Velto/Platform/String.h"
#include "Velto/Platform/TextPool.h"

namespace velto {

/// The keys of one document, each kept once. Objects of one kind have the same keys in the same order, so that a key
/// is mostly the one that came behind the last one before.
class JSONKeys {
 public:
  explicit JSONKeys(TextPool& texts) noexcept : texts_(texts) {}

  /// The expected key if it stands at the start of `rest` with the closing quote behind it, else null.
  const String* takeExpected(std::string_view rest);
  /// `key` from the keys.
  const String& shared(std::string_view key);

 private:
  struct Key {
    String text;
    bool isPlain;         // it stands in a document as it is, without escapes
    bool isPooled;        // from the second time on: what comes once is as likely data as a name
    Key* next = nullptr;  // came behind it the last time
  };

  Key& add(std::string_view key);
  const String& takeAgain(Key& key);

  TextPool& texts_;
  std::unordered_map<std::string_view, Key> keys_;
  Key* last_ = nullptr;
};

/// Keeps short texts that came a short while ago: in most documents a few come very often.
class JSONRecentTexts {
 public:
  String shared(std::string_view text);

 private:
  static std::size_t slotOf(std::string_view text) noexcept;

  std::vector<String> texts_ = std::vector<String>(1024);
};

}  // namespace velto
