// The file system without a disk behaves as the one of the machine does.
#include "Velto/Platform/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <string>

namespace velto {
namespace {

class MemoryFileSystemTest : public testing::Test {
 protected:
  std::string readFailure(const char* path) {
    try {
      files.readText(Url(path));
      return "none";
    } catch (const FileError& error) {
      return error.what();
    }
  }

  MemoryFileSystem files;
};

TEST_F(MemoryFileSystemTest, ReadsByStandardizedAbsolutePath) {
  files.files["/dir/a"] = "x";
  for (const char* path : {"/dir/a", "dir/a", "./dir/../dir//a", "/../dir/a"}) {
    EXPECT_EQ(files.readText(Url(path)), String("x")) << path;
  }
}

TEST_F(MemoryFileSystemTest, TellsWhyAFileCannotBeRead) {
  files.files["/dir/a"] = "\xFF";
  EXPECT_EQ(readFailure("missing"), "No such file or directory");
  EXPECT_EQ(readFailure("dir"), "Is a directory");
  EXPECT_EQ(readFailure(""), "Is a directory");
  EXPECT_EQ(readFailure("dir/a"), "Invalid or incomplete multibyte or wide character");
}

TEST_F(MemoryFileSystemTest, CreatesAndEmptiesFiles) {
  files.files["/a"] = "before";
  files.create(Url("a"))->write("now");
  EXPECT_EQ(files.files["/a"], "now");
  EXPECT_EQ(files.create(Url("missing/a")), nullptr);
  EXPECT_EQ(files.create(Url("/")), nullptr);
}

TEST_F(MemoryFileSystemTest, EveryHandleHasAPositionOfItsOwn) {
  const auto first = files.create(Url("a"));
  first->write("12345");
  const auto second = files.create(Url("a"));
  second->write("xy");
  first->write("6");
  FileSystem::flush();
  EXPECT_EQ(files.files["/a"], std::string("xy\0\0\0"
                                           "6",
                                           6));
}

TEST_F(MemoryFileSystemTest, KeepsTheOutputOfDescriptors) {
  files.standardOutput()->write("1");
  files.descriptor(2)->write("e");
  files.standardOutput()->write("2");
  EXPECT_EQ(files.files["<1>"], "12");
  EXPECT_EQ(files.files["<2>"], "e");
}

TEST_F(MemoryFileSystemTest, CreatesDirectoriesWithTheirParents) {
  EXPECT_TRUE(files.createDirectory(Url("x/y")));
  EXPECT_TRUE(files.createDirectory(Url("x/y")));
  EXPECT_TRUE(files.createDirectory(Url("")));
  EXPECT_EQ(files.directories, std::set<std::string>({"/", "/x", "/x/y"}));
  files.files["/file"] = "";
  EXPECT_FALSE(files.createDirectory(Url("file")));
  EXPECT_FALSE(files.createDirectory(Url("file/x")));
}

TEST_F(MemoryFileSystemTest, AFolderIsThereIfAFileLiesInIt) {
  files.files["/x/y/a"] = "";
  EXPECT_TRUE(files.isDirectory(Url("x")));
  EXPECT_TRUE(files.isDirectory(Url("x/y")));
  EXPECT_FALSE(files.isDirectory(Url("x/y/a")));
  EXPECT_FALSE(files.isDirectory(Url("x/z")));
  files.directories.clear();
  EXPECT_TRUE(files.isDirectory(Url("/")));
}

TEST_F(MemoryFileSystemTest, CopiesFilesAndFolders) {
  files.files = {{"/a/one", "1"}, {"/a/sub/two", "2"}, {"/ab", "3"}};
  files.createDirectory(Url("a/empty"));
  EXPECT_TRUE(files.copy(Url("a/one"), Url("one")));
  EXPECT_TRUE(files.copy(Url("a"), Url("b")));
  EXPECT_EQ(files.files["/one"], "1");
  EXPECT_EQ(files.files["/b/one"], "1");
  EXPECT_EQ(files.files["/b/sub/two"], "2");
  EXPECT_TRUE(files.directories.contains("/b/empty"));
  EXPECT_EQ(files.files.size(), 6u);
}

TEST_F(MemoryFileSystemTest, RefusesToOverwriteAndToCopyIntoItself) {
  files.files = {{"/a/one", "1"}, {"/b", "2"}};
  EXPECT_FALSE(files.copy(Url("a/one"), Url("b")));
  EXPECT_FALSE(files.copy(Url("b"), Url("a")));
  EXPECT_FALSE(files.copy(Url("a"), Url("a/c")));
  EXPECT_FALSE(files.copy(Url("/"), Url("c")));
  EXPECT_FALSE(files.copy(Url("missing"), Url("c")));
  EXPECT_FALSE(files.copy(Url("b"), Url("missing/c")));
  EXPECT_EQ(files.files["/b"], "2");
}

TEST_F(MemoryFileSystemTest, ItsCurrentDirectoryIsTheRoot) {
  EXPECT_EQ(files.currentDirectory(), Url("/"));
}

}  // namespace
}  // namespace velto
