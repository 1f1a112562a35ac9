#include "tests/reliability/FailingFileSystem.h"

#include <utility>

namespace velto::test {
namespace {

bool fails(FailingFileSystem::Failure& failure, const std::string& call) {
  if (failure.isMended) return false;
  if (!failure.call.empty()) return failure.goesOn;
  if (failure.untilFailure-- > 0) return false;
  failure.call = call;
  return true;
}

std::string named(const char* call, const Url& url) {
  return std::string(call) + " " + std::string(url.path());
}

}  // namespace

/// Of the write that fails the first half arrives, as where a disk is full; what comes behind it arrives no more.
class FailingFileSystem::Handle final : public FileHandle {
 public:
  Handle(std::shared_ptr<FileHandle> target, std::string name, std::shared_ptr<Failure> failure)
      : target_(std::move(target)), name_(std::move(name)), failure_(std::move(failure)) {}

  void write(std::string_view bytes) override {
    if (isFull_) return;
    isFull_ = fails(*failure_, "write " + name_);
    target_->write(isFull_ ? bytes.substr(0, bytes.size() / 2) : bytes);
  }

 private:
  std::shared_ptr<FileHandle> target_;
  std::string name_;
  std::shared_ptr<Failure> failure_;
  bool isFull_ = false;
};

std::shared_ptr<FileHandle> FailingFileSystem::wrapped(std::shared_ptr<FileHandle> handle, std::string name) {
  return handle ? std::make_shared<Handle>(std::move(handle), std::move(name), failure_) : nullptr;
}

std::string FailingFileSystem::doRead(const Url& url) {
  if (fails(*failure_, named("read", url))) throw FileError("Input/output error");
  return files_->readBytes(url);
}

std::shared_ptr<FileHandle> FailingFileSystem::doCreate(const Url& url) {
  if (fails(*failure_, named("create", url))) return nullptr;
  return wrapped(files_->create(url), std::string(url.path()));
}

std::shared_ptr<FileHandle> FailingFileSystem::doDescriptor(int number) {
  if (fails(*failure_, "descriptor " + std::to_string(number))) return nullptr;
  return wrapped(files_->descriptor(number), std::to_string(number));
}

bool FailingFileSystem::doCreateDirectory(const Url& url) {
  return !fails(*failure_, named("mkdir", url)) && files_->createDirectory(url);
}

bool FailingFileSystem::doCopy(const Url& source, const Url& destination) {
  return !fails(*failure_, named("copy", source)) && files_->copy(source, destination);
}

bool FailingFileSystem::doIsDirectory(const Url& url) {
  return !fails(*failure_, named("isDirectory", url)) && files_->isDirectory(url);
}

Url FailingFileSystem::doCurrentDirectory() {
  return fails(*failure_, "currentDirectory") ? Url::directory("") : files_->currentDirectory();
}

}  // namespace velto::test
