// Files whose bytes are only counted.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "Velto/Velto.h"

namespace velto::benchmarks {

/// Reads the files of this machine, and counts what is written.
class CountingFileSystem final : public FileSystem {
 public:
  std::size_t count() const noexcept { return *count_; }

 protected:
  std::string doRead(const Url& url) override { return local()->readBytes(url); }
  std::shared_ptr<FileHandle> doCreate(const Url&) override { return std::make_shared<Handle>(count_); }
  std::shared_ptr<FileHandle> doDescriptor(int) override { return std::make_shared<Handle>(count_); }
  bool doCreateDirectory(const Url&) override { return true; }
  bool doCopy(const Url&, const Url&) override { return true; }
  bool doIsDirectory(const Url& url) override { return local()->isDirectory(url); }
  Url doCurrentDirectory() override { return local()->currentDirectory(); }

 private:
  class Handle final : public FileHandle {
   public:
    explicit Handle(std::shared_ptr<std::size_t> count) : count_(std::move(count)) {}
    void write(std::string_view bytes) override { *count_ += bytes.size(); }

   private:
    std::shared_ptr<std::size_t> count_;
  };

  std::shared_ptr<std::size_t> count_ = std::make_shared<std::size_t>(0);
};

}  // namespace velto::benchmarks
