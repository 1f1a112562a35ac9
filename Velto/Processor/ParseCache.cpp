#include "Velto/Processor/ParseCache.h"

#include "Velto/Processor/ParseFile.h"

namespace velto {

ParseCache::ParseCache(std::shared_ptr<Logger> logger, std::shared_ptr<FileSystem> fileSystem)
    : logger_(std::move(logger)), fileSystem_(std::move(fileSystem)) {
}

ParseCache::FileStatements ParseCache::getOrParse(const Url& url, Scanner::Mode mode) {
  const Url key = url.standardized();
  if (const auto present = cache_.find(key); present != cache_.end()) return present->second;
  std::optional<Statements> statements = parseFile(*fileSystem_, url, mode, logger_);
  if (!statements) throw Error();
  return cache_.emplace(key, std::make_shared<const Statements>(std::move(*statements))).first->second;
}

void ParseCache::clear() noexcept {
  cache_.clear();
}

}  // namespace velto
