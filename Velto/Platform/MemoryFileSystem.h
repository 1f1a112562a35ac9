// A file system without a disk, for tests and for hosts that want to see or to bound what a run does.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "Velto/Platform/FileSystem.h"

namespace [[gnu::visibility("default")]] velto {

/// Files by standardized absolute path; the current directory is "/". `files` may be read and written between runs. The
/// descriptors' output is kept under "<1>", "<2>" and so on.
class MemoryFileSystem final : public FileSystem {
 public:
  std::map<std::string, std::string> files;
  std::set<std::string> directories = {"/"};

 protected:
  std::string doRead(const Url& url) override;
  std::shared_ptr<FileHandle> doCreate(const Url& url) override;
  std::shared_ptr<FileHandle> doDescriptor(int number) override;
  bool doCreateDirectory(const Url& url) override;
  bool doCopy(const Url& source, const Url& destination) override;
  bool doIsDirectory(const Url& url) override;
  Url doCurrentDirectory() override;
};

}  // namespace velto
