// A file system without a disk, for tests and for hosts that want to see or to bound what a run does.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "Velto/Platform/FileSystem.h"

namespace [[gnu::visibility("default")]] velto {

/// Files by standardized absolute path; the current directory is "/". A folder is there if it stands in `directories`
/// or if a file lies in it. Both may be read and written between runs. The output of the descriptors is kept under
/// "<1>", "<2>" and so on. It must outlive its handles.
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

 private:
  bool isFolder(const std::string& path) const;
  void copyFolder(const std::string& source, const std::string& destination);
};

}  // namespace velto
