#include "Velto/Processor/ParseCache.h"

#include "Velto/Processor/ParseFile.h"

namespace velto {

ParseCache::ParseCache(std::shared_ptr<Logger> logger, std::shared_ptr<FileSystem> fileSystem,
                       std::shared_ptr<TextPool> texts)
    : logger_(std::move(logger)), fileSystem_(std::move(fileSystem)), texts_(std::move(texts)) {
}

ParseCache::FileStatements ParseCache::getOrParse(const Url& url, Scanner::Mode mode) {
  if (const auto known = known_.find(url); known != known_.end()) return known->second;
  const Url key = url.standardized();
  auto present = cache_.find(key);
  if (present == cache_.end()) {
    std::optional<Statements> statements = parseFile(*fileSystem_, url, mode, logger_, texts_);
    if (!statements) throw Error();
    present = cache_.emplace(key, std::make_shared<const Statements>(std::move(*statements))).first;
  }
  return known_.emplace(url, present->second).first->second;
}

void ParseCache::clear() noexcept {
  cache_.clear();
  known_.clear();
}

}  // namespace velto
