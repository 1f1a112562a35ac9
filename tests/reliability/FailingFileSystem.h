// A file system of which one call fails, or one and all behind it.
#pragma once

#include <memory>
#include <string>

#include "Velto/Velto.h"

namespace velto::test {

/// Passes all calls on to other files, but for those that are to fail, which do it in the way that their kind can.
class FailingFileSystem final : public FileSystem {
 public:
  /// The calls are counted from 0, the writes to handles with them.
  struct Failure {
    int untilFailure;
    bool goesOn = false;    ///< whether all calls behind that one fail, too
    bool isMended = false;  ///< whether nothing fails any more
    std::string call = {};  ///< what failed first, such as "read /a.txt"; empty while nothing has
  };

  FailingFileSystem(std::shared_ptr<FileSystem> files, std::shared_ptr<Failure> failure)
      : files_(std::move(files)), failure_(std::move(failure)) {}

 protected:
  std::string doRead(const Url& url) override;
  std::shared_ptr<FileHandle> doCreate(const Url& url) override;
  std::shared_ptr<FileHandle> doDescriptor(int number) override;
  bool doCreateDirectory(const Url& url) override;
  bool doCopy(const Url& source, const Url& destination) override;
  bool doIsDirectory(const Url& url) override;
  Url doCurrentDirectory() override;

 private:
  class Handle;

  std::shared_ptr<FileHandle> wrapped(std::shared_ptr<FileHandle> handle, std::string name);

  std::shared_ptr<FileSystem> files_;
  std::shared_ptr<Failure> failure_;
};

}  // namespace velto::test
