// What all file systems have in common: buffered handles, and nothing waiting when anything else happens.
#include "Velto/Platform/FileSystem.h"

#include <utility>

#include "Velto/Platform/OutputBuffer.h"
#include "Velto/Platform/ReadError.h"

namespace velto {
namespace {

constexpr int standardErrorNumber = 2;

class BufferedHandle final : public FileHandle {
 public:
  explicit BufferedHandle(std::shared_ptr<FileHandle> target) noexcept : target_(std::move(target)) {}
  ~BufferedHandle() override {
    if (OutputBuffer::ofThreadHoldsBytesFor(*target_)) flushPendingOutputAnyway();
  }

  void write(std::string_view bytes) override {
    if (!OutputBuffer::writeOn(*target_, bytes)) writeFirst(bytes);
  }

 private:
  /// Stands apart, so that the usual way has nothing to save.
  [[gnu::noinline]] void writeFirst(std::string_view bytes) { OutputBuffer::ofThread().writeFirst(target_, bytes); }

  std::shared_ptr<FileHandle> target_;
};

class UnbufferedHandle final : public FileHandle {
 public:
  explicit UnbufferedHandle(std::shared_ptr<FileHandle> target) noexcept : target_(std::move(target)) {}

  void write(std::string_view bytes) override {
    flushPendingOutput();
    target_->write(bytes);
  }

 private:
  std::shared_ptr<FileHandle> target_;
};

/// Where a file system has no descriptors, writing to one is an error like any other, and ignored.
class NoHandle final : public FileHandle {
 public:
  void write(std::string_view) override {}
};

/// A path with a NUL would reach the system cut short.
bool canExist(const Url& url) {
  return url.path().view().find('\0') == std::string_view::npos;
}

void prepareReading(const Url& url) {
  FileSystem::flush();
  if (!canExist(url)) failReading(std::errc::no_such_file_or_directory);
}

}  // namespace

String FileSystem::readText(const Url& url) {
  prepareReading(url);
  StringBuilder bytes;
  doReadInto(url, bytes);
  if (!String::isWellFormed(bytes.view())) failReading(std::errc::illegal_byte_sequence);
  return std::move(bytes).build();
}

std::string FileSystem::readBytes(const Url& url) {
  prepareReading(url);
  return doRead(url);
}

std::shared_ptr<FileHandle> FileSystem::create(const Url& url) {
  flush();
  std::shared_ptr<FileHandle> target = canExist(url) ? doCreate(url) : nullptr;
  return target ? std::make_shared<BufferedHandle>(std::move(target)) : nullptr;
}

std::shared_ptr<FileHandle> FileSystem::descriptor(int number) {
  flush();
  std::shared_ptr<FileHandle> target = doDescriptor(number);
  if (!target) target = std::make_shared<NoHandle>();
  if (number == standardErrorNumber) return std::make_shared<UnbufferedHandle>(std::move(target));
  return std::make_shared<BufferedHandle>(std::move(target));
}

bool FileSystem::createDirectory(const Url& url) {
  flush();
  return canExist(url) && doCreateDirectory(url);
}

bool FileSystem::copy(const Url& source, const Url& destination) {
  flush();
  return canExist(source) && canExist(destination) && doCopy(source, destination);
}

bool FileSystem::isDirectory(const Url& url) {
  flush();
  return canExist(url) && doIsDirectory(url);
}

Url FileSystem::currentDirectory() {
  return doCurrentDirectory();
}

void FileSystem::doReadInto(const Url& url, StringBuilder& bytes) {
  bytes.append(doRead(url));
}

void FileSystem::flush() {
  flushPendingOutput();
}

}  // namespace velto
