// Paths of files as text: joined, shortened, folded.
#include "Velto/Platform/Url.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace velto {
namespace {

/// The root keeps its slash.
String withoutSlashesAtEnd(const String& path) {
  const std::size_t last = path.view().find_last_not_of('/');
  return path.slice(0, last != std::string_view::npos ? last + 1 : std::min<std::size_t>(path.size(), 1));
}

std::string_view withoutSlashesAtStart(std::string_view path) {
  return path.substr(std::min(path.find_first_not_of('/'), path.size()));
}

String join(const std::vector<std::string_view>& parts, bool isAbsolute) {
  StringBuilder path;
  if (isAbsolute) path.append("/");
  for (const std::string_view& part : parts) {
    if (&part != &parts.front()) path.append("/");
    path.append(part);
  }
  return path.build();
}

/// Above the root is the root; above the start of a relative path the ".." stays.
void fold(std::vector<std::string_view>& parts, std::string_view part, bool isAbsolute) {
  if (part.empty() || part == ".") return;
  const bool isUp = part == "..";
  const bool hasFolder = !parts.empty() && parts.back() != "..";
  if (isUp && hasFolder) {
    parts.pop_back();
  } else if (!isUp || !isAbsolute) {
    parts.push_back(part);
  }
}

}  // namespace

Url::Url(const String& path) : Url(withoutSlashesAtEnd(path), path.view().ends_with('/')) {
}

Url Url::directory(const String& path) {
  Url url(path);
  url.isDirectory_ = true;
  return url;
}

Url Url::appendingPathComponent(const String& component) const {
  if (path_.isEmpty()) return Url(String::fromWellFormed(withoutSlashesAtStart(component)));
  const std::string_view separator = path_.view().ends_with('/') ? "" : "/";
  return Url(String::concatenation({path_, separator, withoutSlashesAtStart(component)}));
}

Url Url::deletingLastPathComponent() const {
  const std::size_t slash = path_.view().rfind('/');
  if (slash == std::string_view::npos) return directory(String());
  return directory(path_.slice(0, slash + 1));
}

Url Url::standardized() const {
  const bool isAbsolute = path_.view().starts_with('/');
  std::vector<std::string_view> parts;
  for (std::string_view rest = path_; !rest.empty();) {
    const std::size_t length = std::min(rest.find('/'), rest.size());
    fold(parts, rest.substr(0, length), isAbsolute);
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
  return Url(join(parts, isAbsolute), isDirectory_);
}

}  // namespace velto
