// Addresses of files.
#pragma once

#include <functional>
#include <optional>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// The address of a local file. The path is kept as it was given, relative or absolute, since messages show it.
class Url {
 public:
  /// From a path, as given. It counts as a directory when it ends in "/"; an address that is a directory without
  /// showing it is made by `directory`.
  explicit Url(const String& path);

  static Url directory(const String& path);

  /// From the text of a URL (RFC 3986), resolved against `base`; a base that isn't a directory loses its last
  /// component. Nothing for text that isn't a valid URL, a scheme other than `file`, a host other than `localhost`, or
  /// a path that isn't UTF-8 or has a NUL. `currentDirectory` completes a relative base.
  static std::optional<Url> resolving(const String& text, const Url& base, const Url& currentDirectory);

  /// Joined by one "/", even when `component` begins with one.
  Url appendingPathComponent(const String& component) const;
  Url deletingLastPathComponent() const;
  /// ".", ".." and repeated slashes folded, by text alone.
  Url standardized() const;

  /// Without a slash at the end, but for the root.
  const String& path() const noexcept { return path_; }
  bool isDirectory() const noexcept { return isDirectory_; }

  /// By bytes: names that are canonically equivalent are different files.
  friend bool operator==(const Url& left, const Url& right) {
    return left.path_.view() == right.path_.view() && left.isDirectory_ == right.isDirectory_;
  }

 private:
  Url(String path, bool isDirectory) : path_(std::move(path)), isDirectory_(isDirectory) {}

  String path_;
  bool isDirectory_ = false;
};

}  // namespace velto

template <>
struct std::hash<velto::Url> {
  std::size_t operator()(const velto::Url& url) const { return url.path().hash(); }
};
