// The one interface through which the library touches files and the standard streams.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Velto/Forward.h"
#include "Velto/Platform/Error.h"
#include "Velto/Platform/String.h"
#include "Velto/Platform/Url.h"

namespace [[gnu::visibility("default")]] velto {

/// Where bytes can be written; closed, if it owns something, with its last holder.
class FileHandle {
 public:
  virtual ~FileHandle() = default;

  /// Writes all of `bytes`. An error is ignored, and nothing may be thrown but `std::bad_alloc`.
  virtual void write(std::string_view bytes) = 0;
};

/// All access to files. What is written to the handles of a file system is buffered, and yet every read, every opened
/// file and every fatal stop finds what an unbuffered writer would have left: at most one handle of a thread has bytes
/// waiting, and they are written before anything else that could tell.
///
/// The empty path is the current directory. There is nothing at a path with a NUL.
class FileSystem {
 public:
  /// The files of this machine.
  static std::shared_ptr<FileSystem> local();

  virtual ~FileSystem() = default;

  // Reading throws `FileError`. Text that isn't UTF-8 is an error; a byte order mark stays in the text.
  String readText(const Url& url);
  std::string readBytes(const Url& url);

  /// A handle that writes to the file from its start, emptied if it was there. Null if it can't be opened.
  std::shared_ptr<FileHandle> create(const Url& url);
  /// A handle that doesn't close the descriptor. 2 is not buffered.
  std::shared_ptr<FileHandle> descriptor(int number);
  std::shared_ptr<FileHandle> standardOutput() { return descriptor(1); }
  std::shared_ptr<FileHandle> standardError() { return descriptor(2); }

  /// With all missing parents; a directory that is there counts as success.
  bool createDirectory(const Url& url);
  /// Refuses to overwrite; copies a folder with its contents.
  bool copy(const Url& source, const Url& destination);
  bool isDirectory(const Url& url);
  Url currentDirectory();

  /// Writes what is waiting.
  static void flush();

 protected:
  // What a file system of one's own implements. Nothing is waiting when these are called, no path has a NUL, and the
  // handles that they give need no buffer.
  virtual std::string doRead(const Url& url) = 0;  ///< throws `FileError`
  /// The same bytes, appended to what is to become a text; for file systems that can do it without a copy.
  virtual void doReadInto(const Url& url, StringBuilder& bytes);
  virtual std::shared_ptr<FileHandle> doCreate(const Url& url) = 0;
  virtual std::shared_ptr<FileHandle> doDescriptor(int number) = 0;  ///< null where nothing can be written to it
  virtual bool doCreateDirectory(const Url& url) = 0;
  virtual bool doCopy(const Url& source, const Url& destination) = 0;
  virtual bool doIsDirectory(const Url& url) = 0;
  virtual Url doCurrentDirectory() = 0;
};

}  // namespace velto
