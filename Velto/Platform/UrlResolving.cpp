// Texts of URLs (RFC 3986), resolved against an address and turned into paths.
#include <algorithm>
#include <boost/url/grammar/ci_string.hpp>
#include <boost/url/parse.hpp>
#include <boost/url/url_view.hpp>
#include <string>
#include <vector>

#include "Velto/Platform/Url.h"

namespace velto {
namespace {

namespace urls = boost::urls;

/// What stands behind each slash of an absolute path; the last one is empty for a directory.
using Segments = std::vector<std::string>;

/// Whether something else than a slash stands behind a scheme, so that no path goes from the root. Of such texts the
/// parser asserts what doesn't hold for all of them.
bool isRootless(std::string_view text) {
  const std::size_t end = text.find_first_of(":/?#");
  return end != text.npos && text[end] == ':' && !text.substr(end + 1).starts_with('/');
}

/// Whether the file lies on this machine. A reference without a scheme or a host takes those of its base, which does.
bool isLocal(const urls::url_view& reference) {
  const std::string host = reference.host();
  return (!reference.has_scheme() || reference.scheme_id() == urls::scheme::file) &&
         (host.empty() || urls::grammar::ci_is_equal(host, "localhost"));
}

Segments split(std::string_view path) {
  Segments segments;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    segments.emplace_back(path.substr(start, end - start));
    start = end + 1;
  }
  return segments;
}

Segments segmentsOf(const Url& base, const Url& currentDirectory) {
  const bool isAbsolute = base.path().view().starts_with('/');
  const String path = isAbsolute ? base.path() : currentDirectory.appendingPathComponent(base.path()).path();
  Segments segments = split(path.view().substr(1));
  if (base.isDirectory() && !segments.back().empty()) segments.emplace_back();
  return segments;
}

/// Takes the step that "." or ".." is; false for any other segment.
bool step(std::string_view segment, Segments& segments) {
  const bool isUp = segment == "..";
  if (isUp && !segments.empty()) segments.pop_back();
  return isUp || segment == ".";
}

/// The path of the base without such steps, so that one of the reference leads out of a folder and not back over a
/// step.
Segments folded(const Segments& base) {
  Segments segments;
  for (const std::string& segment : base) {
    if (!step(segment, segments)) segments.push_back(segment);
  }
  return segments;
}

/// Goes along a path that is still encoded, since only a plain "." or ".." is a step.
void follow(std::string_view path, Segments& segments) {
  const Segments parts = split(path);
  for (const std::string& part : parts) {
    const bool isStep = step(part, segments);
    if (!isStep) segments.push_back(urls::make_pct_string_view(part).value().decode());
    if (isStep && &part == &parts.back()) segments.emplace_back();
  }
}

/// The resolution of RFC 3986, 5.2.2. Nothing for a path that belongs to no root, as in "file://".
std::optional<Segments> resolve(const urls::url_view& reference, Segments base) {
  const std::string_view path = reference.encoded_path();
  const bool isRooted = path.starts_with('/');
  const bool standsAlone = reference.has_scheme() || reference.has_authority();
  if (standsAlone && !isRooted) return std::nullopt;
  if (path.empty()) return base;
  if (isRooted) {
    base.clear();
  } else {
    base.pop_back();
  }
  Segments segments = folded(base);
  follow(path.substr(isRooted ? 1 : 0), segments);
  return segments;
}

String join(const Segments& segments) {
  std::string path;
  for (const std::string& segment : segments) path.append("/").append(segment);
  return path;
}

bool isPath(const std::string& segment) {
  return String::isWellFormed(segment) && segment.find('\0') == segment.npos;
}

}  // namespace

std::optional<Url> Url::resolving(const String& text, const Url& base, const Url& currentDirectory) {
  if (isRootless(text)) return std::nullopt;
  const auto reference = urls::parse_uri_reference(text.view());
  if (!reference || !isLocal(*reference)) return std::nullopt;
  const std::optional<Segments> segments = resolve(*reference, segmentsOf(base, currentDirectory));
  if (!segments || !std::all_of(segments->begin(), segments->end(), isPath)) return std::nullopt;
  return Url(join(*segments));
}

}  // namespace velto
