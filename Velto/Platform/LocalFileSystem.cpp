// The files of this machine.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>

#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/FileSystem.h"
#include "Velto/Platform/ReadError.h"

namespace velto {
namespace {

namespace files = std::filesystem;

files::path pathOf(const Url& url) {
  return url.path().isEmpty() ? files::path(".") : files::path(url.path().view());
}

/// Owns a descriptor that the system opened.
class OpenFile {
 public:
  OpenFile(const files::path& path, int flags) noexcept : number_(open(path.c_str(), flags | O_CLOEXEC)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (isOpen()) ::close(number_);
  }

  bool isOpen() const noexcept { return number_ >= 0; }
  int number() const noexcept { return number_; }

 private:
  static int open(const char* path, int flags) noexcept {
    constexpr mode_t readableAndWritable = 0666;
    int number;
    do number = ::open(path, flags, readableAndWritable);
    while (number < 0 && errno == EINTR);
    return number < 0 || number > STDERR_FILENO ? number : moved(number);
  }

  /// Where a process has closed a standard stream, its number is the next one to be given out; whoever writes to the
  /// stream must not write into the file.
  static int moved(int number) noexcept {
    const int free = ::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    ::close(number);
    errno = error;
    return free;
  }

  int number_;
};

class CreatedFile final : public FileHandle {
 public:
  explicit CreatedFile(const Url& url) : file_(pathOf(url), O_WRONLY | O_CREAT | O_TRUNC) {}

  bool isOpen() const noexcept { return file_.isOpen(); }
  void write(std::string_view bytes) override { writeFully(file_.number(), bytes); }

 private:
  OpenFile file_;
};

/// Belongs to the host, and stays open.
class Descriptor final : public FileHandle {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}

  void write(std::string_view bytes) override { writeFully(number_, bytes); }

 private:
  int number_;
};

std::errc lastError() noexcept {
  return static_cast<std::errc>(errno);
}

/// True for any failure but a lack of memory, which is none of the files'.
bool isFailure(const std::error_code& error) {
  if (error == std::errc::not_enough_memory) throw std::bad_alloc();
  return static_cast<bool>(error);
}

/// What a file will need; a little is left for whoever appends to it.
std::size_t expectedSize(int number) {
  struct stat status;
  constexpr std::size_t forAppending = 64;
  return ::fstat(number, &status) == 0 ? static_cast<std::size_t>(status.st_size) + forAppending : 0;
}

/// How many bytes of the file have come; less than none after an error.
ssize_t tryToRead(int number, char* place, std::size_t size) noexcept {
  ssize_t count;
  do count = ::read(number, place, size);
  while (count < 0 && errno == EINTR);
  return count;
}

std::size_t readSome(int number, char* place, std::size_t size) {
  const ssize_t count = tryToRead(number, place, size);
  if (count < 0) failReading(lastError());
  return static_cast<std::size_t>(count);
}

constexpr std::size_t smallestPiece = 4096;
constexpr std::size_t largestPiece = 64 * 1024;

/// By way of pieces: a string fills its memory before anything can be read into it.
std::string readToEnd(int number) {
  const std::size_t expected = expectedSize(number);
  const std::size_t size = std::clamp(expected, smallestPiece, largestPiece);
  const std::unique_ptr<char[]> piece(new char[size]);
  std::string bytes;
  bytes.reserve(expected);
  while (const std::size_t count = readSome(number, piece.get(), size)) bytes.append(piece.get(), count);
  return bytes;
}

void readToEnd(int number, StringBuilder& bytes) {
  bytes.reserve(expectedSize(number));
  std::size_t sizeBefore;
  do {
    if (bytes.room() == 0) bytes.reserve(smallestPiece);
    sizeBefore = bytes.view().size();
    bytes.appendWritten(bytes.room(), [&](char* end) { return end + readSome(number, end, bytes.room()); });
  } while (bytes.view().size() > sizeBefore);
}

bool copyBytes(int source, int destination) {
  const std::size_t size = std::clamp(expectedSize(source), smallestPiece, largestPiece);
  const std::unique_ptr<char[]> piece(new char[size]);
  while (true) {
    const ssize_t count = tryToRead(source, piece.get(), size);
    if (count <= 0) return count == 0;
    if (!writeFully(destination, {piece.get(), static_cast<std::size_t>(count)})) return false;
  }
}

/// The function of the standard library takes a signal for an error.
bool copyFile(const files::path& source, const files::path& destination, files::perms permissions) {
  const OpenFile from(source, O_RDONLY);
  if (!from.isOpen()) return false;
  const OpenFile to(destination, O_WRONLY | O_CREAT | O_EXCL);
  return to.isOpen() && ::fchmod(to.number(), static_cast<mode_t>(permissions)) == 0 &&
         copyBytes(from.number(), to.number());
}

bool copyItem(const files::path& source, const files::path& destination);

/// What lies in a folder. The iterator of the standard library stops the process where it finds no memory for a name.
class OpenFolder {
 public:
  explicit OpenFolder(const files::path& path) : entries_(::opendir(path.c_str())) {
    if (!entries_ && errno == ENOMEM) throw std::bad_alloc();
  }
  OpenFolder(const OpenFolder&) = delete;
  OpenFolder& operator=(const OpenFolder&) = delete;
  ~OpenFolder() {
    if (entries_) ::closedir(entries_);
  }

  bool isOpen() const noexcept { return entries_ != nullptr; }
  /// Null behind the last one, and after an error, which `errno` tells then.
  const char* next() noexcept {
    constexpr std::string_view itself = ".";
    constexpr std::string_view parent = "..";
    errno = 0;
    const dirent* entry = ::readdir(entries_);
    while (entry && (entry->d_name == itself || entry->d_name == parent)) entry = ::readdir(entries_);
    return entry ? entry->d_name : nullptr;
  }

 private:
  DIR* entries_;
};

bool copyContents(const files::path& source, const files::path& destination) {
  OpenFolder folder(source);
  if (!folder.isOpen()) return false;
  while (const char* name = folder.next()) {
    if (!copyItem(source / name, destination / name)) return false;
  }
  return errno == 0;
}

/// A copy of a folder inside that very folder would never end. As text: not all iterators over a path may throw where
/// they find no memory for a name.
bool isInside(const files::path& item, const files::path& folder) {
  std::error_code error;
  const files::path inner = files::canonical(files::absolute(item, error).parent_path(), error);
  if (isFailure(error)) return false;  // there is no such folder to copy into
  const files::path outer = files::canonical(folder, error);
  return isFailure(error) || (inner / "").native().starts_with((outer / "").native());
}

bool copyFolder(const files::path& source, const files::path& destination, files::perms permissions) {
  std::error_code error;
  if (!files::create_directory(destination, error) || !copyContents(source, destination)) return false;
  files::permissions(destination, permissions, error);
  return !isFailure(error);
}

bool copyItem(const files::path& source, const files::path& destination) {
  std::error_code error;
  const files::file_status status = files::symlink_status(source, error);
  switch (status.type()) {
    case files::file_type::regular:
      return copyFile(source, destination, status.permissions());
    case files::file_type::directory:
      return !isInside(destination, source) && copyFolder(source, destination, status.permissions());
    case files::file_type::symlink:
      files::copy_symlink(source, destination, error);
      return !isFailure(error);
    default:
      return false;
  }
}

class LocalFileSystem final : public FileSystem {
 protected:
  std::string doRead(const Url& url) override {
    const OpenFile file(pathOf(url), O_RDONLY);
    if (!file.isOpen()) failReading(lastError());
    return readToEnd(file.number());
  }

  void doReadInto(const Url& url, StringBuilder& bytes) override {
    const OpenFile file(pathOf(url), O_RDONLY);
    if (!file.isOpen()) failReading(lastError());
    readToEnd(file.number(), bytes);
  }

  std::shared_ptr<FileHandle> doCreate(const Url& url) override {
    auto file = std::make_shared<CreatedFile>(url);
    return file->isOpen() ? file : nullptr;
  }

  std::shared_ptr<FileHandle> doDescriptor(int number) override { return std::make_shared<Descriptor>(number); }

  bool doCreateDirectory(const Url& url) override {
    std::error_code error;
    files::create_directories(pathOf(url), error);
    return !isFailure(error) && doIsDirectory(url);
  }

  bool doCopy(const Url& source, const Url& destination) override {
    std::error_code error;
    const bool isFree = files::symlink_status(pathOf(destination), error).type() == files::file_type::not_found;
    return isFree && copyItem(pathOf(source), pathOf(destination));
  }

  bool doIsDirectory(const Url& url) override {
    std::error_code error;
    return files::is_directory(pathOf(url), error);
  }

  Url doCurrentDirectory() override {
    std::error_code error;
    const files::path path = files::current_path(error);
    return isFailure(error) ? Url::directory("") : Url::directory(path.string());
  }
};

}  // namespace

std::shared_ptr<FileSystem> FileSystem::local() {
  static const std::shared_ptr<FileSystem> fileSystem = std::make_shared<LocalFileSystem>();
  return fileSystem;
}

}  // namespace velto
