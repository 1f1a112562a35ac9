// What every exception of the library has in common.
#pragma once

#include <exception>
#include <string>
#include <utility>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// The base of all exceptions that the library throws by itself; `what()` is the localized description in UTF-8.
class Error : public std::exception {};

/// A file that can't be read; `what()` is the system's reason, such as "No such file or directory".
class FileError final : public Error {
 public:
  explicit FileError(std::string reason) : reason_(std::move(reason)) {}

  const char* what() const noexcept override { return reason_.c_str(); }

 private:
  std::string reason_;
};

}  // namespace velto
