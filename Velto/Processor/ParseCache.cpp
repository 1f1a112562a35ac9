#include "Velto/Processor/ParseCache.h"

#include "Velto/Processor/ParseFile.h"

namespace velto {

ParseCache::ParseCache(std::shared_ptr<Logger> logger, std::shared_ptr<FileSystem> fileSystem,
                       std::shared_ptr<TextPool> texts)
    : logger_(std::move(logger)), fileSystem_(std::move(fileSystem)), texts_(std::move(texts)) {
}

ParseCache::FileStatements ParseCache::getOrParse(const Url& url, Scanner::Mode mode) {
  const Url key = standardized(url);  // a copy: the logger may clear the cache while the file is parsed
  if (const auto present = cache_.find(key); present != cache_.end()) return present->second;
  std::optional<Statements> statements = parseFile(*fileSystem_, url, mode, logger_, texts_);
  if (!statements) throw Error();
  return cache_.emplace(key, std::make_shared<const Statements>(std::move(*statements))).first->second;
}

const Url& ParseCache::standardized(const Url& url) {
  const auto present = standardized_.find(url);
  return present != standardized_.end() ? present->second
                                        : standardized_.emplace(url, url.standardized()).first->second;
}

void ParseCache::clear() noexcept {
  cache_.clear();
  standardized_.clear();
}

}  // namespace velto
