// The parsed files of a run.
#pragma once

#include <memory>
#include <unordered_map>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Scanner/Scanner.h"

namespace [[gnu::visibility("default")]] velto {

/// Keeps the statements of every file that was parsed without error, so that each is read, scanned and parsed once.
class ParseCache {
 public:
  /// The file had syntax errors, whose words are on the logger.
  class Error final : public velto::Error {
   public:
    const char* what() const noexcept override { return "ParseCache.Error"; }
  };

  using FileStatements = std::shared_ptr<const Statements>;

  explicit ParseCache(std::shared_ptr<Logger> logger, std::shared_ptr<FileSystem> fileSystem = FileSystem::local(),
                      std::shared_ptr<TextPool> texts = std::make_shared<TextPool>());

  const std::shared_ptr<Logger>& logger() const noexcept { return logger_; }
  /// The names of all files.
  const std::shared_ptr<TextPool>& texts() const noexcept { return texts_; }
  /// By standardized address.
  const std::unordered_map<Url, FileStatements>& cache() const noexcept { return cache_; }

  /// The statements of the file, from the cache whatever `mode` they were first asked for in. Throws `FileError`,
  /// `VeltoError` with step `scan`, or `ParseCache::Error`; a failure keeps nothing.
  FileStatements getOrParse(const Url& url, Scanner::Mode mode);

  void clear() noexcept;

 private:
  std::shared_ptr<Logger> logger_;
  std::shared_ptr<FileSystem> fileSystem_;
  std::shared_ptr<TextPool> texts_;
  std::unordered_map<Url, FileStatements> cache_;
  std::unordered_map<Url, FileStatements> known_;  // the same by each address that was asked for
};

}  // namespace velto
