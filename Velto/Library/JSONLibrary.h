// `loadJSON`, and JSON documents as values.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Velto/Library/Library.h"
#include "Velto/Platform/TextPool.h"
#include "Velto/Platform/Url.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

class JSONLibrary final : public Library {
 public:
  void load(Interpreter& interpreter) override;

  /// What a relative path is resolved against; set by `load`.
  const std::optional<Url>& baseURL() const noexcept { return *baseURL_; }

 private:
  std::shared_ptr<std::optional<Url>> baseURL_ = std::make_shared<std::optional<Url>>();  // `loadJSON` shares it
};

/// The value of a JSON document (RFC 8259, UTF-8, one byte order mark is skipped), scalars at the top level included;
/// nothing if it isn't valid. A repeated key keeps the place of the first and the value of the last. Keys are shared
/// through `texts`, so that a program that names them finds them sooner.
[[gnu::visibility("default")]] std::optional<Value> parseJSON(std::string document, TextPool& texts);
[[gnu::visibility("default")]] std::optional<Value> parseJSON(std::string document);

}  // namespace velto
