// The front door of the library.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Library/Library.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// Runs program files. Nothing is kept between two calls but the fields.
class Processor {
 public:
  /// `baseURL` counts as a directory. Without a logger, or with a null one, the messages go to a fresh `ArrayLogger`.
  explicit Processor(const Url& baseURL, std::shared_ptr<Logger> logger = std::make_shared<ArrayLogger>(),
                     std::shared_ptr<FileSystem> fileSystem = FileSystem::local());

  const Url& baseURL() const noexcept { return baseURL_; }

  // What is changed while a call runs is for the next one.

  std::shared_ptr<Logger> logger;
  /// Defined before the program runs. A value that fails `Value::verify` is reported and left out.
  std::map<String, Value> globals;
  /// Loaded behind the built-in ones; null ones are skipped.
  std::vector<std::shared_ptr<Library>> libraries;

  /// Scans, parses and runs `file`, a path relative to `baseURL`. Throws `FileError` if it can't be read, and
  /// `VeltoError` with the step that failed; the words are on the logger.
  void process(const String& file);

 private:
  Statements parse(const String& file, const std::shared_ptr<TextPool>& texts) const;
  void installGlobals(Interpreter& interpreter) const;

  Url baseURL_;
  std::shared_ptr<FileSystem> fileSystem_;
};

}  // namespace velto
