// The order of bytes on all descriptors, and the files of this machine.
#include "Velto/Platform/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Velto/Platform/Fatal.h"
#include "tests/support/BareFileSystem.h"

namespace velto {
namespace {

using Log = std::vector<std::string>;

/// Writes down which primitive was called when.
class RecordingFileSystem final : public FileSystem {
 public:
  Log log;

 protected:
  class Handle final : public FileHandle {
   public:
    Handle(Log& log, std::string name) : log_(log), name_(std::move(name)) {}
    ~Handle() override { log_.push_back("close " + name_); }
    void write(std::string_view bytes) override { log_.push_back(name_ + ": " + std::string(bytes)); }

   private:
    Log& log_;
    std::string name_;
  };

  std::string doRead(const Url& url) override {
    note("read", url);
    return "text";
  }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override {
    note("create", url);
    return std::make_shared<Handle>(log, std::string(url.path()));
  }
  std::shared_ptr<FileHandle> doDescriptor(int number) override {
    return std::make_shared<Handle>(log, std::to_string(number));
  }
  bool doCreateDirectory(const Url& url) override { return note("mkdir", url); }
  bool doCopy(const Url& source, const Url&) override { return note("copy", source); }
  bool doIsDirectory(const Url& url) override { return note("isDirectory", url); }
  Url doCurrentDirectory() override { return Url("/"); }

 private:
  bool note(const std::string& what, const Url& url) {
    log.push_back(what + " " + std::string(url.path()));
    return true;
  }
};

class BufferingTest : public testing::Test {
 protected:
  RecordingFileSystem files;

  std::shared_ptr<FileHandle> output() { return files.descriptor(1); }
};

TEST_F(BufferingTest, ManySmallWritesBecomeOne) {
  {
    const auto file = files.create(Url("a"));
    for (const char* piece : {"x", "", "yz", "\n"}) file->write(piece);
    EXPECT_EQ(files.log, Log({"create a"}));
  }
  EXPECT_EQ(files.log, Log({"create a", "a: xyz\n", "close a"}));
}

TEST_F(BufferingTest, NothingIsWrittenForNothing) {
  files.create(Url("a"))->write("");
  FileSystem::flush();
  EXPECT_EQ(files.log, Log({"create a", "close a"}));
}

TEST_F(BufferingTest, TheLastHolderWritesAndCloses) {
  auto first = files.create(Url("a"));
  auto second = first;
  first->write("x");
  first = nullptr;
  EXPECT_EQ(files.log, Log({"create a"}));
  second = nullptr;
  EXPECT_EQ(files.log, Log({"create a", "a: x", "close a"}));
}

TEST_F(BufferingTest, WritingToAnotherHandleWritesOutFirst) {
  const auto first = files.create(Url("a"));
  const auto second = files.create(Url("b"));
  files.log.clear();
  first->write("1");
  second->write("2");
  first->write("3");
  first->write("4");
  second->write("5");
  EXPECT_EQ(files.log, Log({"a: 1", "b: 2", "a: 34"}));
  FileSystem::flush();
  EXPECT_EQ(files.log.back(), "b: 5");
}

TEST_F(BufferingTest, TwoHandlesToOneDescriptorKeepTheOrderOfTheCalls) {
  const auto first = output();
  const auto second = output();
  first->write("1");
  second->write("2");
  first->write("3");
  FileSystem::flush();
  EXPECT_EQ(files.log, Log({"1: 1", "1: 2", "1: 3"}));
}

TEST_F(BufferingTest, StandardErrorIsNotBufferedAndComesBehindWhatWaits) {
  const auto out = output();
  const auto error = files.standardError();
  out->write("1");
  error->write("2");
  error->write("3");
  EXPECT_EQ(files.log, Log({"1: 1", "2: 2", "2: 3"}));
}

TEST_F(BufferingTest, AFullBufferIsWritten) {
  const auto out = output();
  const std::string piece(1000, 'x');
  for (int i = 0; i < 66; ++i) out->write(piece);
  ASSERT_EQ(files.log.size(), 1u);
  EXPECT_EQ(files.log[0].size(), std::string("1: ").size() + 65000);
}

TEST_F(BufferingTest, ALargePieceIsNotCopiedIntoTheBuffer) {
  const auto out = output();
  out->write("1");
  out->write(std::string(100'000, 'x'));
  ASSERT_EQ(files.log.size(), 2u);
  EXPECT_EQ(files.log[0], "1: 1");
  EXPECT_EQ(files.log[1].size(), std::string("1: ").size() + 100'000);
}

TEST_F(BufferingTest, AnythingThatCouldTellFindsNothingWaiting) {
  const auto out = output();
  const auto writtenBefore = [&](auto operation) {
    files.log.clear();
    out->write("x");
    operation();
    return files.log.size() >= 1 && files.log[0] == "1: x";
  };
  EXPECT_TRUE(writtenBefore([&] { files.readBytes(Url("a")); }));
  EXPECT_TRUE(writtenBefore([&] { files.readText(Url("a")); }));
  EXPECT_TRUE(writtenBefore([&] { files.create(Url("a")); }));
  EXPECT_TRUE(writtenBefore([&] { files.descriptor(3); }));
  EXPECT_TRUE(writtenBefore([&] { files.createDirectory(Url("a")); }));
  EXPECT_TRUE(writtenBefore([&] { files.copy(Url("a"), Url("b")); }));
  EXPECT_TRUE(writtenBefore([&] { files.isDirectory(Url("a")); }));
  EXPECT_TRUE(writtenBefore([&] { FileSystem::flush(); }));
}

TEST_F(BufferingTest, OtherFileSystemsOfTheThreadTakePart) {
  RecordingFileSystem others;
  const auto out = output();
  out->write("x");
  others.readBytes(Url("a"));
  EXPECT_EQ(files.log, Log({"1: x"}));
}

TEST_F(BufferingTest, PathsWithANulNeverReachTheFileSystem) {
  const Url url(String(std::string_view("a\0b", 3)));
  EXPECT_THROW(files.readBytes(url), FileError);
  EXPECT_EQ(files.create(url), nullptr);
  EXPECT_FALSE(files.createDirectory(url));
  EXPECT_FALSE(files.copy(url, Url("b")));
  EXPECT_FALSE(files.copy(Url("b"), url));
  EXPECT_FALSE(files.isDirectory(url));
  EXPECT_EQ(files.log, Log());
}

/// Writes everything to the handles of another file system too, as a host that records a run does.
class ForwardingFileSystem final : public FileSystem {
 public:
  explicit ForwardingFileSystem(FileSystem& below) : below_(below) {}

 protected:
  class Handle final : public FileHandle {
   public:
    explicit Handle(std::shared_ptr<FileHandle> below) : below_(std::move(below)) {}
    void write(std::string_view bytes) override {
      below_->write("[");
      below_->write(bytes);
      below_->write("]");
    }

   private:
    std::shared_ptr<FileHandle> below_;
  };

  std::string doRead(const Url& url) override { return below_.readBytes(url); }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return std::make_shared<Handle>(below_.create(url)); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override {
    return std::make_shared<Handle>(below_.descriptor(number));
  }
  bool doCreateDirectory(const Url& url) override { return below_.createDirectory(url); }
  bool doCopy(const Url& source, const Url& destination) override { return below_.copy(source, destination); }
  bool doIsDirectory(const Url& url) override { return below_.isDirectory(url); }
  Url doCurrentDirectory() override { return below_.currentDirectory(); }

 private:
  FileSystem& below_;
};

TEST_F(BufferingTest, AHandleMayWriteToAnotherHandle) {
  ForwardingFileSystem forwarding(files);
  {
    const auto file = forwarding.create(Url("a"));
    file->write("x");
    file->write("y");
    FileSystem::flush();
    EXPECT_EQ(files.log, Log({"create a", "a: [xy]"}));
    file->write("z");
  }
  EXPECT_EQ(files.log, Log({"create a", "a: [xy]", "a: [z]", "close a"}));
}

TEST_F(BufferingTest, AThreadWritesWhatIsLeftWhenItEnds) {
  std::shared_ptr<FileHandle> file;
  std::thread([&] {
    file = files.create(Url("a"));
    file->write("x");
  }).join();
  EXPECT_EQ(files.log, Log({"create a", "a: x"}));
}

TEST(BufferingDeathTest, ObjectsThatOutliveTheBufferCanWrite) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // a process in which nothing has been written yet
  const auto writeLate = [] {
    static const struct Late {
      ~Late() { handle->write("late"); }
      std::shared_ptr<FileHandle> handle = FileSystem::local()->descriptor(::dup(STDERR_FILENO));
    } late;
    late.handle->write("early ");
    std::exit(0);
  };
  EXPECT_EXIT(writeLate(), testing::ExitedWithCode(0), "^early late$");
}

TEST(BufferingDeathTest, WithoutARoomForItsEndABufferIsRefused) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // a process in which nothing has been written yet
  const auto writeWithoutKeys = [] {
    EXPECT_THROW(throw std::bad_alloc(), std::bad_alloc);  // some runtimes take a key for exceptions, too
    pthread_key_t key;
    while (::pthread_key_create(&key, nullptr) == 0) continue;
    try {
      FileSystem::local()->descriptor(STDERR_FILENO + 100)->write("lost");
    } catch (const std::bad_alloc&) {
      std::exit(3);
    }
  };
  EXPECT_EXIT(writeWithoutKeys(), testing::ExitedWithCode(3), "^$");
}

/// A fresh folder of this machine, gone after the test.
class LocalFilesTest : public testing::Test {
 protected:
  LocalFilesTest() {
    char name[] = "/tmp/velto-files-XXXXXX";
    root = ::mkdtemp(name);
  }
  ~LocalFilesTest() override { std::filesystem::remove_all(root); }

  Url at(const std::string& path) const { return Url(root + "/" + path); }

  void put(const std::string& path, std::string_view content) const {
    std::ofstream(root + "/" + path, std::ios::binary) << content;
  }

  std::string contentOf(const std::string& path) const {
    std::ifstream file(root + "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  bool exists(const std::string& path) const { return std::filesystem::exists(root + "/" + path); }

  std::string readFailure(const Url& url) const {
    try {
      files->readText(url);
      return "none";
    } catch (const FileError& error) {
      return error.what();
    }
  }

  std::string root;
  std::shared_ptr<FileSystem> files = FileSystem::local();
};

TEST_F(LocalFilesTest, ReadsWholeFiles) {
  for (const std::size_t size : {0u, 1u, 4095u, 4096u, 4097u, 8192u, 300'000u}) {
    const std::string content(size, 'x');
    put("a", content);
    EXPECT_EQ(files->readBytes(at("a")), content);
    EXPECT_EQ(files->readText(at("a")), String(content));
  }
}

TEST_F(LocalFilesTest, ReadsWhatHasNoSizeOfItsOwn) {
  ASSERT_EQ(::mkfifo((root + "/pipe").c_str(), 0600), 0);
  const std::string content(200'000, 'x');
  std::thread writer([&] { put("pipe", content); });
  EXPECT_EQ(files->readBytes(at("pipe")), content);
  writer.join();
}

TEST_F(LocalFilesTest, ReadsTextThatHasNoSizeOfItsOwn) {
  ASSERT_EQ(::mkfifo((root + "/pipe").c_str(), 0600), 0);
  const std::string content(200'000, 'x');
  std::thread writer([&] { put("pipe", content); });
  EXPECT_EQ(files->readText(at("pipe")).view(), content);
  writer.join();
}

TEST_F(LocalFilesTest, KeepsBytesAsTheyAre) {
  const std::string content("\xEF\xBB\xBF a\0b\r\n", 9);
  put("a", content);
  EXPECT_EQ(files->readText(at("a")).view(), content);
}

TEST_F(LocalFilesTest, RefusesTextThatIsNotUTF8) {
  put("a", "x\xFFy");
  EXPECT_EQ(readFailure(at("a")), "Invalid or incomplete multibyte or wide character");
  EXPECT_EQ(files->readBytes(at("a")), "x\xFFy");
}

TEST_F(LocalFilesTest, TellsWhyAFileCannotBeRead) {
  put("file", "");
  EXPECT_EQ(readFailure(at("missing")), "No such file or directory");
  EXPECT_EQ(readFailure(Url(root)), "Is a directory");
  EXPECT_EQ(readFailure(Url("")), "Is a directory");
  EXPECT_EQ(readFailure(at("file/a")), "Not a directory");
  EXPECT_EQ(readFailure(Url(String(std::string_view("a\0b", 3)))), "No such file or directory");
}

TEST_F(LocalFilesTest, CreatesAndEmptiesFiles) {
  put("a", "before, and longer");
  files->create(at("a"))->write("now");
  EXPECT_EQ(contentOf("a"), "now");
  files->create(at("b"));
  EXPECT_TRUE(exists("b"));
}

TEST_F(LocalFilesTest, CannotCreateWithoutAFolderNorOverOne) {
  EXPECT_EQ(files->create(at("missing/a")), nullptr);
  EXPECT_EQ(files->create(Url(root)), nullptr);
  EXPECT_EQ(files->create(Url("")), nullptr);
}

TEST_F(LocalFilesTest, AFileReadBackShowsAllThatWasWritten) {
  const auto file = files->create(at("a"));
  file->write("x");
  EXPECT_EQ(files->readText(at("a")), String("x"));
  file->write("y");
  ASSERT_TRUE(files->copy(at("a"), at("b")));
  EXPECT_EQ(contentOf("b"), "xy");
}

TEST_F(LocalFilesTest, ASecondHandleBehavesAsWithAnUnbufferedWriter) {
  const auto first = files->create(at("a"));
  first->write("12345");
  const auto second = files->create(at("a"));
  second->write("xy");
  first->write("6");
  FileSystem::flush();
  EXPECT_EQ(contentOf("a"), std::string("xy\0\0\0"
                                        "6",
                                        6));
}

TEST_F(LocalFilesTest, ADescriptorStaysOpenAndAFileIsClosed) {
  const int number = ::open((root + "/a").c_str(), O_WRONLY | O_CREAT, 0600);
  files->descriptor(number)->write("1");
  EXPECT_EQ(::write(number, "2", 1), 1);
  EXPECT_EQ(contentOf("a"), "12");
  ::close(number);
  files->create(at("b"));
  EXPECT_EQ(::fcntl(number, F_GETFD), -1) << "the lowest free number belonged to the file, which must be closed";
}

TEST_F(LocalFilesTest, ErrorsOfWritingAreIgnored) {
  const auto nowhere = files->descriptor(987);
  nowhere->write("x");
  FileSystem::flush();
  const auto full = files->create(Url("/dev/full"));
  full->write("x");
  FileSystem::flush();
}

TEST_F(LocalFilesTest, WritesAllThroughShortWrites) {
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const std::string content(500'000, 'x');
  std::thread writer([&] {
    files->descriptor(pipe[1])->write(content);
    ::close(pipe[1]);
  });
  std::string received;
  char part[777];
  for (ssize_t count; (count = ::read(pipe[0], part, sizeof part)) > 0;) {
    received.append(part, static_cast<std::size_t>(count));
  }
  writer.join();
  ::close(pipe[0]);
  EXPECT_EQ(received, content);
}

TEST_F(LocalFilesTest, WaitsForASlowReaderOfAPipeThatDoesNotBlock) {
  int pipe[2];
  ASSERT_EQ(::pipe2(pipe, O_NONBLOCK), 0);
  const std::string content(300'000, 'x');
  std::thread writer([&] {
    files->descriptor(pipe[1])->write(content);
    ::close(pipe[1]);
  });
  std::string received;
  char part[20'000];
  for (ssize_t count = -1; count != 0;) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    count = ::read(pipe[0], part, sizeof part);
    if (count > 0) received.append(part, static_cast<std::size_t>(count));
  }
  writer.join();
  ::close(pipe[0]);
  EXPECT_EQ(received, content);
}

/// A pipe that nobody reads any more, and what SIGPIPE does in this thread.
class ClosedPipeTest : public testing::Test {
 protected:
  ClosedPipeTest() {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    ::close(ends[0]);
    writingEnd = ends[1];
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_SETMASK, nullptr, &maskBefore);
  }
  ~ClosedPipeTest() override {
    takeSignal();
    pthread_sigmask(SIG_SETMASK, &maskBefore, nullptr);
    ::close(writingEnd);
  }

  void write() const {
    FileSystem::local()->descriptor(writingEnd)->write("nobody reads this");
    FileSystem::flush();
  }

  static bool isBlocked() {
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    return sigismember(&mask, SIGPIPE) == 1;
  }

  bool takeSignal() const {
    constexpr timespec atOnce{};
    return sigtimedwait(&signals, nullptr, &atOnce) == SIGPIPE;
  }

  void block() const { pthread_sigmask(SIG_BLOCK, &signals, nullptr); }

  int writingEnd;
  sigset_t signals;
  sigset_t maskBefore;
};

TEST_F(ClosedPipeTest, DoesNotEndTheProcess) {
  ASSERT_FALSE(isBlocked());
  write();
  EXPECT_FALSE(isBlocked()) << "later signals must come as before";
}

TEST_F(ClosedPipeTest, LeavesTheSignalOfOtherWritesAlone) {
  write();
  EXPECT_EXIT((void)!::write(writingEnd, "x", 1), testing::KilledBySignal(SIGPIPE), "");
}

TEST_F(ClosedPipeTest, LeavesNoSignalToAHostThatBlocksIt) {
  block();
  write();
  EXPECT_TRUE(isBlocked());
  EXPECT_FALSE(takeSignal());
}

TEST_F(ClosedPipeTest, KeepsASignalThatWasPendingBefore) {
  block();
  ::raise(SIGPIPE);
  write();
  EXPECT_TRUE(takeSignal());
}

TEST_F(ClosedPipeTest, LetsTheOutputsBehindItThrough) {
  write();
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  FileSystem::local()->descriptor(ends[1])->write("x");
  FileSystem::flush();
  char received = 0;
  EXPECT_EQ(::read(ends[0], &received, 1), 1);
  EXPECT_EQ(received, 'x');
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST_F(LocalFilesTest, CreatesDirectoriesWithTheirParents) {
  EXPECT_TRUE(files->createDirectory(at("x/y/z")));
  EXPECT_TRUE(files->isDirectory(at("x/y/z")));
  EXPECT_TRUE(files->createDirectory(at("x/y")));
  EXPECT_TRUE(files->createDirectory(at("x/new/../other")));
  EXPECT_TRUE(files->isDirectory(at("x/other")));
  EXPECT_TRUE(files->createDirectory(Url("")));
  EXPECT_TRUE(files->createDirectory(Url("a").deletingLastPathComponent()));
  put("file", "");
  EXPECT_FALSE(files->createDirectory(at("file")));
  EXPECT_FALSE(files->createDirectory(at("file/x")));
  EXPECT_FALSE(files->isDirectory(at("file")));
  EXPECT_FALSE(files->isDirectory(at("missing")));
}

TEST_F(LocalFilesTest, CopiesFilesWithTheirPermissions) {
  put("a", "content");
  ::chmod((root + "/a").c_str(), 0750);
  EXPECT_TRUE(files->copy(at("a"), at("b")));
  EXPECT_EQ(contentOf("b"), "content");
  struct stat status;
  ASSERT_EQ(::stat((root + "/b").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777u, 0750u);
}

TEST_F(LocalFilesTest, CopiesFoldersWithTheirContents) {
  files->createDirectory(at("a/sub/empty"));
  put("a/one", "1");
  put("a/sub/two", "2");
  std::filesystem::create_symlink("one", root + "/a/link");
  std::filesystem::create_symlink("nowhere", root + "/a/dangling");
  EXPECT_TRUE(files->copy(at("a"), at("b")));
  EXPECT_EQ(contentOf("b/one"), "1");
  EXPECT_EQ(contentOf("b/sub/two"), "2");
  EXPECT_TRUE(files->isDirectory(at("b/sub/empty")));
  EXPECT_EQ(std::filesystem::read_symlink(root + "/b/link"), "one");
  EXPECT_EQ(std::filesystem::read_symlink(root + "/b/dangling"), "nowhere");
}

TEST_F(LocalFilesTest, CopiesALinkAsALink) {
  std::filesystem::create_symlink("nowhere", root + "/a");
  EXPECT_TRUE(files->copy(at("a"), at("b")));
  EXPECT_EQ(std::filesystem::read_symlink(root + "/b"), "nowhere");
}

TEST_F(LocalFilesTest, NeverOverwrites) {
  put("a", "new");
  put("file", "old");
  files->createDirectory(at("folder"));
  std::filesystem::create_symlink("nowhere", root + "/dangling");
  for (const char* destination : {"file", "folder", "dangling", "a"}) {
    EXPECT_FALSE(files->copy(at("a"), at(destination))) << destination;
  }
  EXPECT_FALSE(files->copy(at("folder"), at("file")));
  EXPECT_FALSE(files->copy(at("a"), Url("")));
  EXPECT_EQ(contentOf("file"), "old");
  EXPECT_FALSE(exists("nowhere"));
}

TEST_F(LocalFilesTest, CannotCopyWhatIsMissingNorToAMissingFolder) {
  put("a", "");
  EXPECT_FALSE(files->copy(at("missing"), at("b")));
  EXPECT_FALSE(files->copy(at("a"), at("missing/b")));
  EXPECT_FALSE(exists("missing"));
}

TEST_F(LocalFilesTest, DoesNotCopyAFolderIntoItself) {
  files->createDirectory(at("a/b"));
  EXPECT_FALSE(files->copy(at("a"), at("a/c")));
  EXPECT_FALSE(files->copy(at("a"), at("a/b/c")));
  EXPECT_FALSE(exists("a/c"));
  EXPECT_FALSE(exists("a/b/c"));
  EXPECT_TRUE(files->copy(at("a/b"), at("a/c")));
  EXPECT_TRUE(files->copy(at("a"), at("ab")));
  EXPECT_TRUE(files->copy(at("a"), at("ab/a"))) << "only the start of its name is the same";
}

TEST_F(LocalFilesTest, ACopyThatFailsHalfwayIsAFailure) {
  files->createDirectory(at("a"));
  ASSERT_EQ(::mkfifo((root + "/a/pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files->copy(at("a"), at("b")));
}

TEST_F(LocalFilesTest, KnowsTheCurrentDirectory) {
  EXPECT_EQ(files->currentDirectory().path().view(), std::filesystem::current_path().string());
  EXPECT_TRUE(files->currentDirectory().isDirectory());
}

TEST_F(LocalFilesTest, AFatalStopFindsAllWritten) {
  const auto print = [&] {
    const auto file = files->create(at("a"));
    file->write("before");
    fatalError("stop");
  };
  EXPECT_DEATH(print(), "fatal: stop");
  EXPECT_EQ(contentOf("a"), "before");
}

TEST(FileSystem, WritingIsIgnoredWhereThereAreNoDescriptors) {
  test::BareFileSystem files;
  testing::internal::CaptureStdout();
  for (const int number : {1, 2, 7}) files.descriptor(number)->write("text");
  FileSystem::flush();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(LocalFileSystem, AFileNeverTakesTheNumberOfAStandardStream) {
  const std::string path = testing::TempDir() + "velto-standard-streams";
  EXPECT_EXIT(
      {
        close(STDIN_FILENO);
        close(STDOUT_FILENO);
        const auto file = FileSystem::local()->create(Url(path));
        FileSystem::local()->standardOutput()->write("lost");
        file->write("kept");
        FileSystem::flush();
        std::exit(FileSystem::local()->readBytes(Url(path)) == "kept" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace velto
