// A file system with nothing in it, for tests to add what they need.
#pragma once

#include "Velto/Platform/FileSystem.h"

namespace velto::test {

class BareFileSystem : public FileSystem {
 protected:
  std::string doRead(const Url&) override { throw FileError("nothing here"); }
  std::shared_ptr<FileHandle> doCreate(const Url&) override { return nullptr; }
  std::shared_ptr<FileHandle> doDescriptor(int) override { return nullptr; }
  bool doCreateDirectory(const Url&) override { return false; }
  bool doCopy(const Url&, const Url&) override { return false; }
  bool doIsDirectory(const Url&) override { return false; }
  Url doCurrentDirectory() override { return Url::directory("/"); }
};

}  // namespace velto::test
