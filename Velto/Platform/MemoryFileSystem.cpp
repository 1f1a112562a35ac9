// A file system without a disk.
#include "Velto/Platform/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

#include "Velto/Platform/ReadError.h"

namespace velto {
namespace {

using Files = std::map<std::string, std::string>;

/// Keeps a position of its own, as an open file does: two handles to one file write over each other.
class MemoryFile final : public FileHandle {
 public:
  MemoryFile(Files& files, std::string path) noexcept : files_(files), path_(std::move(path)) {}

  void write(std::string_view bytes) override {
    std::string& content = files_[path_];
    content.resize(std::max(content.size(), position_ + bytes.size()));
    content.replace(position_, bytes.size(), bytes);
    position_ += bytes.size();
  }

 private:
  Files& files_;
  std::string path_;
  std::size_t position_ = 0;
};

/// All handles of a descriptor write one behind the other.
class MemoryDescriptor final : public FileHandle {
 public:
  MemoryDescriptor(Files& files, int number) : files_(files), name_("<" + std::to_string(number) + ">") {}

  void write(std::string_view bytes) override { files_[name_].append(bytes); }

 private:
  Files& files_;
  std::string name_;
};

std::string keyOf(const Url& url) {
  const bool isAbsolute = url.path().view().starts_with('/');
  const Url absolute = isAbsolute ? url : Url("/").appendingPathComponent(url.path());
  return std::string(absolute.standardized().path());
}

std::string parentOf(const std::string& path) {
  return std::string(Url(path).deletingLastPathComponent().path());
}

/// What the paths of all that lies in the folder begin with.
std::string prefixOf(const std::string& folder) {
  return folder.ends_with('/') ? folder : folder + "/";
}

}  // namespace

std::string MemoryFileSystem::doRead(const Url& url) {
  const std::string path = keyOf(url);
  const auto file = files.find(path);
  if (file != files.end()) return file->second;
  failReading(isFolder(path) ? std::errc::is_a_directory : std::errc::no_such_file_or_directory);
}

std::shared_ptr<FileHandle> MemoryFileSystem::doCreate(const Url& url) {
  const std::string path = keyOf(url);
  if (isFolder(path) || !isFolder(parentOf(path))) return nullptr;
  files[path].clear();
  return std::make_shared<MemoryFile>(files, path);
}

std::shared_ptr<FileHandle> MemoryFileSystem::doDescriptor(int number) {
  return std::make_shared<MemoryDescriptor>(files, number);
}

bool MemoryFileSystem::doCreateDirectory(const Url& url) {
  const std::string path = keyOf(url);
  if (isFolder(path)) return true;
  if (files.contains(path) || !doCreateDirectory(Url(parentOf(path)))) return false;
  directories.insert(path);
  return true;
}

bool MemoryFileSystem::doCopy(const Url& source, const Url& destination) {
  const std::string from = keyOf(source);
  const std::string to = keyOf(destination);
  if (files.contains(to) || isFolder(to) || !isFolder(parentOf(to))) return false;
  const auto file = files.find(from);
  if (file != files.end()) return files.emplace(to, file->second).second;
  if (!isFolder(from) || to.starts_with(prefixOf(from))) return false;
  copyFolder(from, to);
  return true;
}

void MemoryFileSystem::copyFolder(const std::string& source, const std::string& destination) {
  const std::string prefix = prefixOf(source);
  const auto copyOf = [&](const std::string& path) { return prefixOf(destination) + path.substr(prefix.size()); };
  directories.insert(destination);
  for (const std::string& path : directories) {
    if (path.starts_with(prefix)) directories.insert(copyOf(path));
  }
  for (const auto& [path, content] : files) {
    if (path.starts_with(prefix)) files.emplace(copyOf(path), content);
  }
}

bool MemoryFileSystem::doIsDirectory(const Url& url) {
  return isFolder(keyOf(url));
}

Url MemoryFileSystem::doCurrentDirectory() {
  return Url::directory("/");
}

bool MemoryFileSystem::isFolder(const std::string& path) const {
  if (path == "/" || directories.contains(path)) return true;
  const auto file = files.lower_bound(prefixOf(path));
  return file != files.end() && file->first.starts_with(prefixOf(path));
}

}  // namespace velto
