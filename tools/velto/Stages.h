// The stages of the pipeline, run one by one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "MessagePrinter.h"
#include "Velto/Velto.h"

namespace command {

/// Runs `work` on `file` and gives the exit status that belongs to how it ends; what it throws is shown by `printer`.
int finish(MessagePrinter& printer, const std::string& file, const std::function<void()>& work);

/// The tokens of `file`, whose name is shown as it was given. Throws `FileError`, or `VeltoError` with step `scan`.
std::vector<velto::Token> scan(const std::string& file, velto::Scanner::Mode mode,
                               const std::shared_ptr<velto::Logger>& logger);

/// Throws `VeltoError` with step `scan` for tags that don't fit.
std::vector<velto::Token> unpack(std::vector<velto::Token> tokens, const std::shared_ptr<velto::Logger>& logger);

}  // namespace command
