// The front half of the pipeline for one file.
#pragma once

#include <memory>
#include <optional>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Scanner/Scanner.h"

namespace velto {

/// Reads, scans, unpacks and parses; nothing if there were syntax errors. Throws `FileError`, and `VeltoError` with
/// step `scan`.
std::optional<Statements> parseFile(FileSystem& fileSystem, const Url& url, Scanner::Mode mode,
                                    const std::shared_ptr<Logger>& logger, const std::shared_ptr<TextPool>& texts);

}  // namespace velto
