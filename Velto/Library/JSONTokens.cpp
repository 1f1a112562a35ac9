// Where the tokens of a JSON document begin. Of simdjson only the first of its two stages is used, the one that it has
// for each kind of processor: the second builds a document of its own, and is neither exact nor strict in all numbers.
#include "Velto/Library/JSONTokens.h"

#include <simdjson.h>

#include <algorithm>
#include <new>
#include <utility>

namespace velto {

namespace {

/// simdjson chooses its code for this processor when it is first used, and stops the process if there is no memory for
/// that. So it chooses as the library is loaded.
[[maybe_unused]] const bool hasChosen = simdjson::get_active_implementation()->validate_utf8("", 0);

/// A lack of memory is no property of the document.
bool isFailure(simdjson::error_code error) {
  if (error == simdjson::MEMALLOC) throw std::bad_alloc();
  return error != simdjson::SUCCESS;
}

const std::uint8_t* asBytes(const char* text) noexcept {
  return reinterpret_cast<const std::uint8_t*>(text);
}

}  // namespace

struct JSONTokens::Finder {
  std::unique_ptr<simdjson::internal::dom_parser_implementation> implementation;
};

JSONTokens::JSONTokens(std::string document)
    : document_(std::move(document)), size_(document_.size()), finder_(std::make_unique<Finder>()) {
  document_.append(simdjson::SIMDJSON_PADDING, '\0');
}

JSONTokens::~JSONTokens() = default;

bool JSONTokens::find() {
  constexpr std::size_t unusedDepth = 1;
  auto& implementation = finder_->implementation;
  const auto* const active = simdjson::get_active_implementation().operator->();
  if (isFailure(active->create_dom_parser_implementation(size_, unusedDepth, implementation)) ||
      isFailure(implementation->stage1(asBytes(document_.data()), size_, simdjson::stage1_mode::regular))) {
    return false;
  }
  places_ = implementation->structural_indexes.get();
  count_ = implementation->n_structural_indexes;
  return true;
}

const char* JSONTokens::findBackslash(const char* begin) const noexcept {
  const std::string_view rest(begin, static_cast<std::size_t>(document_.data() + size_ - begin));
  return begin + std::min(rest.find('\\'), rest.size());
}

std::optional<std::string_view> JSONTokens::unescaped(std::size_t token) {
  const std::size_t needed = bytes(token).size() + simdjson::SIMDJSON_PADDING;
  if (unescaped_.size() < needed) unescaped_.resize(std::max(needed, 2 * unescaped_.size()));
  auto* const begin = reinterpret_cast<std::uint8_t*>(unescaped_.data());
  const std::uint8_t* const end = finder_->implementation->parse_string(asBytes(behindFirst(token)), begin);
  if (!end) return std::nullopt;
  return std::string_view(unescaped_.data(), static_cast<std::size_t>(end - begin));
}

}  // namespace velto
