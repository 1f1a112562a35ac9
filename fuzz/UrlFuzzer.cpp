// Any texts as paths and as texts of URLs. The first line is a path or a URL, the second one what it is joined to.
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "Velto/Platform/Url.h"
#include "support/Require.h"
#include "support/Scan.h"

namespace velto::fuzz {
namespace {

const Url currentDirectory = Url::directory("/current");

std::string describe(const Url& url) {
  return std::string(url.path()).append(url.isDirectory() ? " (directory)" : " (file)");
}

std::string describe(const std::optional<Url>& url) {
  return url ? describe(*url) : "none";
}

std::string_view withoutSlashes(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of('/'), text.size()));
}

/// What the standard library makes of a path: it leaves the slashes of a root, and writes the start of a relative path
/// as a dot.
std::string foldedByStandardLibrary(std::string_view path) {
  const std::string_view root = path.starts_with('/') ? "/" : "";
  const std::filesystem::path whole = std::string(root).append(withoutSlashes(path));
  std::string folded = whole.lexically_normal().string();
  if (folded.size() > 1 && folded.ends_with('/')) folded.pop_back();
  return folded == "." ? "" : folded;
}

void checkPath(const String& path) {
  const Url url(path);
  require(url.isDirectory() == path.view().ends_with('/'), "A slash at the end tells a directory.");
  require(url.path() == "/" || !url.path().view().ends_with('/'), "Only the root ends in a slash.", url.path());
  require(path.view().starts_with(url.path().view()), "A path is kept as it was given.");
  const Url folded = url.standardized();
  requireEqual(folded.path(), foldedByStandardLibrary(path), "A path is folded as the standard library does it.");
  require(folded.standardized() == folded, "A folded path is folded.", folded.path());
  require(folded.isDirectory() == url.isDirectory(), "A directory stays one.");
  const Url parent = url.deletingLastPathComponent();
  require(parent.isDirectory() && path.view().starts_with(parent.path().view()), "A parent is a directory above.");
}

void checkAppending(const String& path, const String& component) {
  const Url base(path);
  const Url joined = base.appendingPathComponent(component);
  const std::string_view name = withoutSlashes(component);
  const std::string_view separator = base.path().isEmpty() || base.path() == "/" ? "" : "/";
  const std::string whole = std::string(base.path()).append(separator).append(name);
  requireEqual(describe(joined), describe(Url(whole)), "A component stands behind one slash.");
  if (name.empty() || name.find('/') != name.npos || base.path().isEmpty()) return;
  requireEqual(joined.deletingLastPathComponent().path(), base.path(), "Deleting undoes appending.");
}

bool isUnreserved(char byte) {
  return ('a' <= byte && byte <= 'z') || ('A' <= byte && byte <= 'Z') || ('0' <= byte && byte <= '9') ||
         std::string_view("-._~/").find(byte) != std::string_view::npos;
}

std::string encoded(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : path) {
    const auto bits = static_cast<unsigned char>(byte);
    if (isUnreserved(byte)) {
      text.push_back(byte);
    } else {
      text.append({'%', digits[bits >> 4], digits[bits & 15]});
    }
  }
  return text;
}

bool hasSteps(std::string_view path) {
  const std::string closed = std::string("/").append(path).append("/");
  return closed.find("/./") != closed.npos || closed.find("/../") != closed.npos;
}

/// Any path but one with a NUL has a URL.
void checkEncoded(const String& path, const String& base) {
  if (hasSteps(path)) return;
  const bool isPath = path.view().find('\0') == std::string_view::npos;
  const String absolute = String::concatenation({"/", path});
  const auto whole = Url::resolving("file://" + encoded(absolute), Url(base), currentDirectory);
  requireEqual(describe(whole), isPath ? describe(Url(absolute)) : "none", "A path comes out of its URL.");
  const std::string_view name = withoutSlashes(path);
  const Url given = Url::directory(String::concatenation({"/", withoutSlashes(base)}));
  if (name.empty() || given.path().view().find('\0') != std::string_view::npos) return;
  const Url folder = hasSteps(base) ? Url::resolving("./", given, currentDirectory).value() : given;
  const auto part = Url::resolving("./" + encoded(name), folder, currentDirectory);
  requireEqual(describe(part), isPath ? describe(folder.appendingPathComponent(name)) : "none",
               "A relative path comes out of its URL.");
}

void checkResolving(const String& text, const String& base) {
  const auto url = Url::resolving(text, Url(base), currentDirectory);
  const bool hasQuery = text.view().find('?') != std::string_view::npos;
  const bool hasFragment = text.view().find('#') != std::string_view::npos;
  const auto resolved = [&](std::string_view suffix) {
    return describe(Url::resolving(String::concatenation({text, suffix}), Url(base), currentDirectory));
  };
  if (!hasFragment) requireEqual(resolved("#a"), describe(url), "A fragment changes nothing.");
  if (!hasFragment && !hasQuery) requireEqual(resolved("?a=b"), describe(url), "A query changes nothing.");
  if (!url) return;
  require(url->path().view().starts_with('/'), "What was resolved is absolute.", url->path());
  require(String::isWellFormed(url->path()), "What was resolved is text.");
  require(url->path().view().find('\0') == std::string_view::npos, "What was resolved has no NUL.");
  if (!text.view().starts_with('/')) return;
  const auto elsewhere = Url::resolving(text, Url("/other"), currentDirectory);
  requireEqual(describe(url), describe(elsewhere), "An absolute path needs no base.");
}

}  // namespace
}  // namespace velto::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto;
  const String source = fuzz::sourceOf(data, size);
  const std::size_t lineEnd = std::min(source.view().find('\n'), source.size());
  const String first = source.slice(0, lineEnd);
  const String second = source.view().substr(std::min(lineEnd + 1, source.size()));
  fuzz::checkPath(first);
  fuzz::checkPath(second);
  fuzz::checkAppending(second, first);
  fuzz::checkEncoded(first, second);
  fuzz::checkResolving(first, second);
  return 0;
}
